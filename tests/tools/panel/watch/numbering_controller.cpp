#include "tools/panel/watch/numbering_controller.h"

#include "support/driver_fixture.h"

namespace kx
{

namespace
{

const int READ_COILS = 1;
const int READ_REGISTERS = 3;

int wordAt(const QByteArray& bytes, int index)
{
    return static_cast<quint8>(bytes.at(index)) << 8 | static_cast<quint8>(bytes.at(index + 1));
}

QByteArray registersFrom(int first, int count, int held)
{
    QByteArray data;
    for (int number = first; number < first + count; ++number) {
        const int value = held < 0 ? number : held;
        data += static_cast<char>(value >> 8);
        data += static_cast<char>(value & 0xFF);
    }
    return data;
}

QByteArray coilsFrom(int first, int count, int coilBit)
{
    QByteArray data((count + 7) / 8, '\0');
    for (int i = 0; i < count; ++i) {
        const int coil = (first + i) >> coilBit & 1;
        data[i / 8] = static_cast<char>(data.at(i / 8) | coil << i % 8);
    }
    return data;
}

QByteArray refusalOf(const QByteArray& request, char exception)
{
    const char function = static_cast<char>(request.at(1) | 0x80);
    return withCrc((request.left(1) + function + exception).toHex().constData());
}

} // namespace

QByteArray NumberingController::replyTo(const QByteArray& request) const
{
    const int first = wordAt(request, 2);
    const int count = wordAt(request, 4);
    if (request.at(1) > READ_REGISTERS) // station, function, first, count or value
        return withCrc(request.left(6).toHex().constData());
    const bool isOfCoils = request.at(1) == READ_COILS;
    if (count > (isOfCoils ? mostCoils : mostRegisters))
        return refusalOf(request, '\3');
    if (refuses || (missing >= first && missing < first + count))
        return refusalOf(request, '\2');
    const QByteArray data =
        isOfCoils ? coilsFrom(first, count, coilBit) : registersFrom(first, count, held);
    const QByteArray frame = request.left(2) + static_cast<char>(data.size()) + data;
    return withCrc(frame.toHex().constData());
}

} // namespace kx
