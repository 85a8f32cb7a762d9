#include "exchange/replies/reply_verdict.h"

#include "addresses/request_limits.h"
#include "modbus/crc.h"

#include <algorithm>
#include <cstring>

namespace kx
{

namespace
{

const int EXCEPTION_LENGTH = 5;
const int WRITE_ECHO_LENGTH = 8;
const int STATION_AND_FUNCTION = 2;
const int ECHOED_BYTES = 6;  // station, function, address, value or quantity
const int READ_OVERHEAD = 5; // station, function, byte count, CRC

int byteAt(const QByteArray& bytes, int index)
{
    return static_cast<unsigned char>(bytes.at(index));
}

bool isRead(int function)
{
    return function >= 1 && function <= 4;
}

/// The whole length that a frame announces by its first three bytes; 0 unknown.
int announcedLength(const QByteArray& received)
{
    const int function = byteAt(received, 1);
    if (function & EXCEPTION_FLAG)
        return EXCEPTION_LENGTH;
    if (isRead(function))
        return byteAt(received, 2) + READ_OVERHEAD;
    return function == 5 || function == 6 || function == 15 || function == 16 ? WRITE_ECHO_LENGTH
                                                                              : 0;
}

bool holdsFrame(const QByteArray& received, int length)
{
    return length >= EXCEPTION_LENGTH && received.size() >= length
           && endsWithItsCrc(received.left(length));
}

bool answers(const FRAME_PRO& request, const QByteArray& received)
{
    if (byteAt(received, 0) != request.frame[0] || byteAt(received, 1) != request.frame[1])
        return false;
    if (isRead(request.frame[1]))
        return byteAt(received, 2) == request.recvLen - READ_OVERHEAD;
    for (int i = 0; i < ECHOED_BYTES; ++i) {
        if (byteAt(received, i) != request.frame[i])
            return false;
    }
    return true;
}

/// Whether the frame, of the expected length, is of the station and function asked; its
/// byte count then speaks against its own length.
bool miscounts(const FRAME_PRO& request, const QByteArray& received)
{
    return isRead(request.frame[1])
           && std::memcmp(request.frame, received.constData(), STATION_AND_FUNCTION) == 0;
}

/// Compares as many bytes as both have.
bool agree(const FRAME_PRO& request, const QByteArray& received)
{
    const int length = std::min(request.sendLen, static_cast<int>(received.size()));
    return std::memcmp(request.frame, received.constData(), static_cast<size_t>(length)) == 0;
}

bool refuses(const FRAME_PRO& request, const QByteArray& received)
{
    return byteAt(received, 0) == request.frame[0]
           && byteAt(received, 1) == (request.frame[1] | EXCEPTION_FLAG);
}

} // namespace

bool isReadRequest(const FRAME_PRO& request)
{
    return isRead(request.frame[1]);
}

bool areMistakable(const FRAME_PRO& one, const FRAME_PRO& other)
{
    const int compared = isRead(one.frame[1]) ? STATION_AND_FUNCTION : ECHOED_BYTES;
    return one.recvLen == other.recvLen
           && std::memcmp(one.frame, other.frame, static_cast<size_t>(compared)) == 0;
}

int frameLengthOf(const QByteArray& received)
{
    if (received.size() < EXCEPTION_LENGTH)
        return 0;
    const int announced = announcedLength(received);
    return holdsFrame(received, announced) ? announced : 0;
}

bool endsWithItsCrc(const QByteArray& frame)
{
    const int length = static_cast<int>(frame.size()) - 2;
    if (length < 0)
        return false;
    const quint16 crc =
        modbusCrc(reinterpret_cast<const unsigned char*>(frame.constData()), length);
    return byteAt(frame, length) == (crc & 0xFF) && byteAt(frame, length + 1) == crc >> 8;
}

int exceptionCodeOf(const QByteArray& exceptionReply)
{
    return byteAt(exceptionReply, 2);
}

Judgement judgeReply(const FRAME_PRO& request, const QByteArray& received)
{
    if (received.size() < EXCEPTION_LENGTH)
        return {Verdict::Incomplete, 0};
    const bool hasExpectedLength = holdsFrame(received, request.recvLen);
    if (hasExpectedLength && answers(request, received))
        return {Verdict::Good, request.recvLen};
    if (agree(request, received))
        return received.size() < request.sendLen ? Judgement{Verdict::Incomplete, 0}
                                                 : Judgement{Verdict::Echo, request.sendLen};
    if (hasExpectedLength)
        return {miscounts(request, received) ? Verdict::WrongByteCount : Verdict::Foreign,
                request.recvLen};
    const int announced = announcedLength(received);
    if (holdsFrame(received, announced))
        return {refuses(request, received) ? Verdict::Exception : Verdict::Foreign, announced};
    if (received.size() >= request.recvLen)
        return {Verdict::Bad, request.recvLen};
    return {Verdict::Incomplete, 0};
}

} // namespace kx
