#include "kxsim/requests/request_frame.h"

#include "addresses/request_limits.h"
#include "addresses/station_text.h"
#include "modbus/crc.h"

namespace kxsim
{

namespace
{

const int READ_COILS = 1;
const int READ_REGISTERS = 3;
const int WRITE_COIL = 5;
const int WRITE_REGISTER = 6;
const int WRITE_COILS = 15;
const int WRITE_REGISTERS = 16;

const int ILLEGAL_FUNCTION = 1;
const int ILLEGAL_VALUE = 3;

const int SHORTEST = 4;        // station, function, CRC
const int LONGEST_FRAME = 256; // bytes of any Modbus RTU frame
const int FIXED_LENGTH = 8;    // station, function, address, quantity or value, CRC
const int WRITE_OVERHEAD = 9;  // of a write of several, without its data
const int COUNTED = 7;         // bytes up to the byte count

int byteAt(const QByteArray& bytes, int index)
{
    return static_cast<quint8>(bytes.at(index));
}

int functionOf(const QByteArray& bytes)
{
    return byteAt(bytes, 1);
}

bool isMultipleWrite(int function)
{
    return function == WRITE_COILS || function == WRITE_REGISTERS;
}

int quantityOf(const QByteArray& bytes)
{
    return byteAt(bytes, 4) << 8 | byteAt(bytes, 5);
}

bool hasRightByteCount(const QByteArray& bytes)
{
    const int quantity = quantityOf(bytes);
    return byteAt(bytes, COUNTED - 1)
           == (functionOf(bytes) == WRITE_COILS ? (quantity + 7) / 8 : quantity * 2);
}

bool endsWithItsCrc(const QByteArray& bytes, int length)
{
    const quint16 crc =
        modbusCrc(reinterpret_cast<const unsigned char*>(bytes.constData()), length - 2);
    return byteAt(bytes, length - 2) == (crc & 0xFF) && byteAt(bytes, length - 1) == crc >> 8;
}

const int MORE_NEEDED = 0;
const int OPEN = -1;

/// The length that station, function and counts announce, MORE_NEEDED or OPEN.
int announcedLength(const QByteArray& bytes)
{
    if (bytes.size() < 2)
        return MORE_NEEDED;
    const int function = functionOf(bytes);
    if (function >= READ_COILS && function <= WRITE_REGISTER)
        return FIXED_LENGTH;
    if (!isMultipleWrite(function))
        return OPEN;
    if (bytes.size() < COUNTED)
        return MORE_NEEDED;
    return hasRightByteCount(bytes) ? WRITE_OVERHEAD + byteAt(bytes, COUNTED - 1) : OPEN;
}

bool beginsWithRequest(const QByteArray& bytes)
{
    const int length = announcedLength(bytes);
    return byteAt(bytes, 0) <= kx::HIGHEST_STATION && length > 0 && length <= bytes.size()
           && endsWithItsCrc(bytes, length);
}

bool holdsLaterRequest(const QByteArray& bytes)
{
    for (int offset = 1; offset + FIXED_LENGTH <= bytes.size(); ++offset) {
        if (beginsWithRequest(bytes.mid(offset)))
            return true;
    }
    return false;
}

FoundRequest findByCrc(const QByteArray& bytes)
{
    const int longest = qMin(LONGEST_FRAME, static_cast<int>(bytes.size()));
    for (int length = SHORTEST; length <= longest; ++length) {
        if (!endsWithItsCrc(bytes, length))
            continue;
        // A frame whose CRC ends with 0 seems to end one byte earlier, too.
        while (length < longest && bytes.at(length) == 0)
            ++length;
        return {FoundRequest::WHOLE, length};
    }
    // Noise must not hide the request that follows it.
    const bool isOver = longest == LONGEST_FRAME || holdsLaterRequest(bytes);
    return {isOver ? FoundRequest::DAMAGED : FoundRequest::INCOMPLETE, 0};
}

} // namespace

FoundRequest findRequest(const QByteArray& received)
{
    const int length = announcedLength(received);
    if (byteAt(received, 0) > kx::HIGHEST_STATION || length > LONGEST_FRAME
        || (length == OPEN && functionOf(received) >= kx::EXCEPTION_FLAG))
        return {FoundRequest::DAMAGED, 0};
    if (length == OPEN)
        return findByCrc(received);
    if (length == MORE_NEEDED || length > received.size())
        return {FoundRequest::INCOMPLETE, 0};
    return endsWithItsCrc(received, length) ? FoundRequest{FoundRequest::WHOLE, length}
                                            : FoundRequest{FoundRequest::DAMAGED, 0};
}

int formFault(const QByteArray& request)
{
    const int function = functionOf(request);
    const bool isSingle = function == READ_COILS || function == READ_REGISTERS
                          || function == WRITE_COIL || function == WRITE_REGISTER;
    if (isSingle)
        return 0;
    if (!isMultipleWrite(function))
        return ILLEGAL_FUNCTION;
    const int most =
        function == WRITE_COILS ? kx::MOST_COILS_PER_WRITE : kx::MOST_REGISTERS_PER_WRITE;
    if (request.size() < WRITE_OVERHEAD || quantityOf(request) < 1 || quantityOf(request) > most
        || !hasRightByteCount(request))
        return ILLEGAL_VALUE;
    return 0;
}

} // namespace kxsim
