#include "listen/frame_shape.h"

#include "addresses/request_limits.h"
#include "driver/records.h"

namespace kx
{

namespace
{

const int SHORT_LENGTH = 8;     // requests but long writes, and what confirms a write
const int EXCEPTION_LENGTH = 5; // station, function, code, CRC
const int READ_OVERHEAD = 5;    // station, function, byte count, CRC
const int WRITE_OVERHEAD = 9;   // station, function, address, quantity, byte count, CRC
const int WRITE_BYTE_COUNT = 6; // its position
const int BYTE_RANGE = 256;

int byteAt(const QByteArray& bytes, int index)
{
    return static_cast<unsigned char>(bytes.at(index));
}

bool isRead(int function)
{
    return function >= 1 && function <= 4;
}

bool isSingleWrite(int function)
{
    return function == 5 || function == 6;
}

bool isLongWrite(int function)
{
    return function == 15 || function == 16;
}

/// Bytes of data that a quantity of coils (functions 1, 2, 15) or registers takes.
int dataBytes(int function, int quantity)
{
    const bool isBits = function == 1 || function == 2 || function == 15;
    return isBits ? (quantity + 7) / 8 : quantity * BYTES_PER_REGISTER;
}

int longWriteLength(const QByteArray& bytes)
{
    if (bytes.size() <= WRITE_BYTE_COUNT)
        return NEEDS_MORE;
    const int announced = byteAt(bytes, WRITE_BYTE_COUNT);
    const int carried = dataBytes(functionOf(bytes), numberAt(bytes, 4));
    const bool hasWrapped =
        carried % BYTE_RANGE == announced && carried + WRITE_OVERHEAD <= FRAME_SIZE;
    return (hasWrapped ? carried : announced) + WRITE_OVERHEAD;
}

} // namespace

int stationOf(const QByteArray& frame)
{
    return byteAt(frame, 0);
}

int functionOf(const QByteArray& frame)
{
    return byteAt(frame, 1);
}

int numberAt(const QByteArray& frame, int position)
{
    return byteAt(frame, position) << 8 | byteAt(frame, position + 1);
}

bool isKnownFunction(const QByteArray& frame)
{
    const int function = functionOf(frame) & ~EXCEPTION_FLAG;
    return isRead(function) || isSingleWrite(function) || isLongWrite(function);
}

int requestLength(const QByteArray& bytes)
{
    if (bytes.size() < 2)
        return NEEDS_MORE;
    const int function = functionOf(bytes);
    if (isRead(function) || isSingleWrite(function))
        return SHORT_LENGTH;
    return isLongWrite(function) ? longWriteLength(bytes) : NO_FRAME;
}

int replyLength(const QByteArray& bytes)
{
    if (bytes.size() < 2)
        return NEEDS_MORE;
    const int function = functionOf(bytes);
    if (stationOf(bytes) == 0)
        return NO_FRAME; // nobody answers a broadcast
    if (function & EXCEPTION_FLAG)
        return EXCEPTION_LENGTH;
    if (isSingleWrite(function) || isLongWrite(function))
        return SHORT_LENGTH;
    if (!isRead(function))
        return NO_FRAME;
    if (bytes.size() < 3)
        return NEEDS_MORE;
    return byteAt(bytes, 2) == 0 ? NO_FRAME : byteAt(bytes, 2) + READ_OVERHEAD;
}

int answerLength(const QByteArray& request, const QByteArray& bytes)
{
    if (request.isEmpty())
        return NO_FRAME;
    if (bytes.size() < 2)
        return NEEDS_MORE;
    const int function = functionOf(request);
    if (stationOf(bytes) != stationOf(request) || (functionOf(bytes) & ~EXCEPTION_FLAG) != function)
        return NO_FRAME;
    const int length = replyLength(bytes);
    if (functionOf(bytes) != function || !isRead(function) || length <= 0)
        return length;
    const bool isAsked = byteAt(bytes, 2) == dataBytes(function, numberAt(request, 4)) % BYTE_RANGE;
    return isAsked ? length : NO_FRAME;
}

} // namespace kx
