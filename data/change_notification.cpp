#include "data/change_notification.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"

namespace
{

const int BITS_PER_WORD = 16;
const int WATCHED_AS_PAIR_START = 1 << 1;
const int WATCHED_AS_PAIR_END = 1 << 2;

void report(int station, const QString& name, int address)
{
    tellRuntime(driver.linkId, station, name, address);
}

bool hasBit(int value, int bit)
{
    return bit >= 0 && bit < BITS_PER_WORD && (value & 1 << bit) != 0;
}

bool differInBit(int a, int b, int bit)
{
    return hasBit(a ^ b, bit);
}

/// The marks of one record, looked up at each use: the value-change function
/// may have changed them, or moved the records.
class Marks
{
public:
    Marks(int station, const QString& regType, int address)
        : m_station(station), m_regType(regType), m_address(address)
    {
        area();
    }

    bool bit(int number) const { return hasBit(area().bitMonitorMask, number); }
    bool anyBit() const { return area().bitMonitorMask != 0; }
    bool pairStart() const { return (area().monitorFlags & WATCHED_AS_PAIR_START) != 0; }
    bool pairEnd() const { return (area().monitorFlags & WATCHED_AS_PAIR_END) != 0; }

    // A negative field never counts as watched.
    bool whole() const { return area().monitorFlags % 2 == 1; }

private:
    const _DATA_& area() const { return dataArea(m_station, m_regType, m_address); }

    UndisturbedAreas m_undisturbed;
    int m_station;
    const QString& m_regType;
    int m_address;
};

void reportBitsOfWord(const Marks& marks, int changed, int station, const QString& regType,
                      int address)
{
    const QString name = regType + QLatin1String("_bit");
    for (int bit = 0; bit < BITS_PER_WORD; ++bit) {
        if (marks.bit(bit) && hasBit(changed, bit))
            report(station, name, wrapAdd(wrapMul(address, BITS_PER_WORD), bit));
    }
}

void reportPairs(const Marks& marks, int station, const QString& regType, int address)
{
    if (address >= 0 && marks.pairStart())
        report(station, regType + QLatin1String("32"), address);
    if (address >= 1 && marks.pairEnd())
        report(station, regType + QLatin1String("32"), address - 1);
}

void reportBitsOfByte(const Marks& marks, int newBits, int oldBits, int station,
                      const QString& regType, int address)
{
    for (int bit = 0; bit < BITS_PER_GROUP; ++bit) {
        if (marks.bit(bit) && differInBit(newBits, oldBits, bit))
            report(station, regType, wrapAdd(address, bit));
    }
}

} // namespace

void _wordDataChange(int* oldValue, int* newValue, int station, QString regType, int address,
                     int bitStart)
{
    const Marks marks(station, regType, address);
    if (*oldValue == *newValue)
        return;
    if (bitStart == 0 && marks.anyBit())
        reportBitsOfWord(marks, *oldValue ^ *newValue, station, regType, address);
    if (marks.whole())
        report(station, regType, address);
    reportPairs(marks, station, regType, address);
}

void _OnlyOneDataTypeDataChange(int station, QString regType, int address, int isBit,
                                unsigned char newBits, unsigned char oldBits, int groupMode)
{
    if (isBit == 0) {
        if (Marks(station, regType, address).whole())
            report(station, regType, address);
        return;
    }
    const Marks group(station, regType, bitGroupStart(address));
    if (groupMode != 0)
        reportBitsOfByte(group, newBits, oldBits, station, regType, address);
    else if (group.bit(bitInGroup(address)))
        report(station, regType, address);
}

void _byteDataChange(unsigned char* newByte, unsigned char* oldByte, int station, QString regType,
                     int address)
{
    const Marks marks(station, regType, address);
    reportBitsOfByte(marks, *newByte, *oldByte, station, regType, address);
}
