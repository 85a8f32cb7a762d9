#include "tools/faults/identifying_memory.h"

#include "registers/register_types.h"

#include <QtCore/QSet>

namespace kx
{

namespace
{

const int READ_COILS = 1;
const int READ_REGISTERS = 3;
const int STATION_STRIDE = 677; // registers
const int MARKS = 2048;         // 11 bits
const int COUNTS = 32;          // 5 bits

int byteAt(const QByteArray& bytes, int index)
{
    return static_cast<quint8>(bytes.at(index));
}

int wordAt(const QByteArray& bytes, int index)
{
    return byteAt(bytes, index) << 8 | byteAt(bytes, index + 1);
}

int markOf(int station, int number)
{
    return (station * STATION_STRIDE + number) % MARKS;
}

/// Scattered, so that neighbours and stations differ.
quint8 coilOf(int station, int number)
{
    const quint32 mixed =
        (static_cast<quint32>(station) << 16 | static_cast<quint32>(number)) * 2654435761U;
    return static_cast<quint8>(mixed >> 31);
}

QList<int> words(const RegisterType* type, qint64 value)
{
    if (type->registerClass == DOUBLE_WORD_CLASS)
        return {static_cast<int>(value >> 16), static_cast<int>(value & 0xFFFF)};
    return {static_cast<int>(value)};
}

} // namespace

void IdentifyingMemory::prepareFor(const QByteArray& request)
{
    ++m_count;
    const int station = byteAt(request, 0);
    const int function = byteAt(request, 1);
    const int first = wordAt(request, 2);
    kxsim::ControllerMemory* const memory = m_stations->memory(station);
    if (!memory || (function != READ_COILS && function != READ_REGISTERS))
        return;
    for (int number = first; number < first + wordAt(request, 4); ++number) {
        if (function == READ_COILS)
            *memory->coil(number) = coilOf(station, number);
        else
            *memory->holdingRegister(number) =
                static_cast<quint16>(markOf(station, number) * COUNTS + m_count % COUNTS);
    }
}

bool IdentifyingMemory::belongsTo(const RegisterType* type, int station, int address,
                                  qint64 value) const
{
    const int number = modbusNumber(type, address);
    if (type->registerClass == BIT_CLASS)
        return value == coilOf(station, number);
    int next = number;
    for (const int word : words(type, value)) {
        if (word / COUNTS != markOf(station, next++))
            return false;
    }
    return true;
}

bool IdentifyingMemory::hasHeld(const RegisterType* type, int station, int address, qint64 value,
                                int since) const
{
    if (!belongsTo(type, station, address, value))
        return false;
    if (type->registerClass == BIT_CLASS)
        return true;
    const int age = (m_count - words(type, value).first() % COUNTS) & (COUNTS - 1);
    return age < m_count - since;
}

bool haveMarksOfTheirOwn(const QList<AddressRange>& ranges)
{
    QSet<int> marks;
    int registers = 0;
    for (const AddressRange& range : ranges) {
        if (range.type->registerClass == BIT_CLASS)
            continue;
        const int first = modbusNumber(range.type, range.address);
        for (int number = first; number < first + range.driverCount(); ++number, ++registers)
            marks.insert(markOf(range.station, number));
    }
    return marks.size() == registers;
}

} // namespace kx
