#include "model/plain_driver.h"

namespace
{

bool bitOf(int value, int bit)
{
    return bit >= 0 && bit <= 31 && ((static_cast<quint32>(value) >> bit) & 1) != 0;
}

bool isWatchedWhole(int monitorFlags)
{
    return monitorFlags > 0 && monitorFlags % 2 == 1;
}

} // namespace

void PlainDriver::wordChange(int oldValue, int newValue, int station, const QString& regType,
                             int address, int bitStart)
{
    const int index = indexOfDataArea(station, regType, address, dataAreas);
    if (oldValue == newValue)
        return;
    const int mask = dataAreas.at(index).bitMonitorMask;
    for (int b = 0; bitStart == 0 && mask != 0 && b < 16; ++b) {
        if (bitOf(mask, b) && bitOf(oldValue, b) != bitOf(newValue, b))
            valueChanged(linkId, station, regType + QString::fromLatin1("_bit"),
                         wrapped(static_cast<qint64>(address) * 16 + b));
    }
    const int flags = dataAreas.at(index).monitorFlags;
    if (isWatchedWhole(flags))
        valueChanged(linkId, station, regType, address);
    for (int bit = 1; bit <= 2; ++bit) {
        const int candidate = wrapped(static_cast<qint64>(address) - (bit - 1));
        if (candidate < 0)
            return;
        if (bitOf(flags, bit))
            valueChanged(linkId, station, regType + QString::fromLatin1("32"), candidate);
    }
}

void PlainDriver::wholeChange(int station, const QString& regType, int address, int isBit,
                              int newBits, int oldBits, int groupMode)
{
    if (isBit == 0) {
        if (isWatchedWhole(record(station, regType, address).monitorFlags))
            valueChanged(linkId, station, regType, address);
        return;
    }
    const int mask = record(station, regType, address / 8 * 8).bitMonitorMask;
    if (groupMode == 0) {
        if (bitOf(mask, address % 8))
            valueChanged(linkId, station, regType, address);
        return;
    }
    for (int b = 0; b < 8; ++b) {
        if (bitOf(mask, b) && bitOf(newBits, b) != bitOf(oldBits, b))
            valueChanged(linkId, station, regType, wrapped(static_cast<qint64>(address) + b));
    }
}

void PlainDriver::byteChange(int newByte, int oldByte, int station, const QString& regType,
                             int address)
{
    const int mask = record(station, regType, address).bitMonitorMask;
    if (newByte == oldByte || mask == 0)
        return;
    for (int b = 0; b < 8; ++b) {
        if (bitOf(mask, b) && bitOf(newByte, b) != bitOf(oldByte, b))
            valueChanged(linkId, station, regType, wrapped(static_cast<qint64>(address) + b));
    }
}
