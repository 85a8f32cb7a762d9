#include "panel/session/driver_values.h"

#include "addresses/request_limits.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const int FIRST_DATA_BYTE = 3; // behind station, function, byte count
const int BITS_PER_BYTE = 8;   // the lowest first; of registers the highest byte comes first

int bytesPerValue(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS ? 1 : BYTES_PER_REGISTER * registersPerAddress(type);
}

template <class Record>
AddressRange rangeOfRecord(const Record& record)
{
    AddressRange range;
    range.type = findRegisterType(record.regType);
    range.address = record.address;
    range.values = range.type ? record.count / registersPerAddress(range.type) : record.count;
    range.station = record.station;
    return range;
}

} // namespace

AddressRange rangeOf(const VARIABLE& job)
{
    return rangeOfRecord(job);
}

AddressRange rangeOf(const _RCP_VAR_PRO& variable)
{
    return rangeOfRecord(variable);
}

int bytesOf(const AddressRange& range)
{
    return range.values * bytesPerValue(range.type);
}

QByteArray driverBytes(const Assignment& assignment)
{
    const int size = bytesPerValue(assignment.range.type);
    QByteArray bytes;
    for (const qint64 value : assignment.values) {
        for (int i = 0; i < size; ++i)
            bytes.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    }
    return bytes;
}

QList<qint64> valuesOfReply(const AddressRange& range, const QByteArray& reply)
{
    const auto byteAt = [&reply](int index) {
        const int at = FIRST_DATA_BYTE + index;
        return at < reply.size() ? static_cast<unsigned char>(reply.at(at)) : 0;
    };
    const bool isBits = range.type->registerClass == BIT_CLASS;
    const int size = bytesPerValue(range.type);
    QList<qint64> values;
    for (int i = 0; i < range.values; ++i) {
        qint64 value = isBits ? byteAt(i / BITS_PER_BYTE) >> i % BITS_PER_BYTE & 1 : 0;
        for (int k = 0; !isBits && k < size; ++k)
            value = value * 256 + byteAt(i * size + k);
        values << value;
    }
    return values;
}

QList<qint64> valuesOf(const AddressRange& range, const QByteArray& bytes)
{
    const int size = bytesPerValue(range.type);
    QList<qint64> values;
    for (int end = size; end <= bytes.size(); end += size) {
        qint64 value = 0;
        for (int i = end - 1; i >= end - size; --i)
            value = value * 256 + static_cast<unsigned char>(bytes.at(i));
        values << value;
    }
    return values;
}

} // namespace kx
