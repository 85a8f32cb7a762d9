#include "kxhost/raw/raw_reply.h"

#include "addresses/request_limits.h"
#include "exchange/lines/mbap_frames.h"
#include "exchange/replies/reply_verdict.h"

#include <QtCore/QtEndian>

#include <cstring>

namespace kx
{

namespace
{

const int ADDRESS_AND_QUANTITY = 6; // bytes up to the end of both
const int QUANTITY = 4;             // the byte at which it stands
const int READ_OVERHEAD = 5;        // station, function, byte count, CRC
const int WRITE_ECHO_LENGTH = 8;
const int LOOPBACK = 8; // the function that sends the request back, as single writes do

int functionOf(const QByteArray& frame)
{
    return static_cast<unsigned char>(frame.at(1));
}

bool isRead(int function)
{
    return function >= 1 && function <= 4;
}

/// The length of a good reply; 0 when the request tells too little.
int expectedLength(const QByteArray& request)
{
    if (request.size() < ADDRESS_AND_QUANTITY)
        return 0;
    const int function = functionOf(request);
    const int quantity = qFromBigEndian<quint16>(request.constData() + QUANTITY);
    if (isRead(function))
        return READ_OVERHEAD + (function <= 2 ? (quantity + 7) / 8 : quantity * BYTES_PER_REGISTER);
    const bool isWrite = function == 5 || function == 6 || function == 15 || function == 16;
    return isWrite ? WRITE_ECHO_LENGTH : 0;
}

FRAME_PRO driverRequest(const QByteArray& request)
{
    FRAME_PRO asked = FRAME_PRO();
    asked.sendLen = static_cast<int>(qMin<qint64>(request.size(), FRAME_SIZE));
    asked.recvLen = expectedLength(request);
    std::memcpy(asked.frame, request.constData(), static_cast<size_t>(asked.sendLen));
    return asked;
}

/// A frame that says where it ends, or all of the bytes.
int wholeLength(const QByteArray& bytes)
{
    const int announced = frameLengthOf(bytes);
    if (announced > 0)
        return announced;
    const bool isFrame = bytes.size() >= SHORTEST_RTU_FRAME && endsWithItsCrc(bytes);
    return isFrame ? static_cast<int>(bytes.size()) : 0;
}

RawResult resultOf(const QByteArray& request, const QByteArray& frame)
{
    if (request.size() < 2 || request.at(0) != frame.at(0))
        return RawResult::Other;
    if (functionOf(frame) == (functionOf(request) | EXCEPTION_FLAG))
        return RawResult::Exception;
    if (functionOf(frame) != functionOf(request))
        return RawResult::Other;
    if (expectedLength(request) == 0)
        return RawResult::Good;
    const Judgement judgement = judgeReply(driverRequest(request), frame);
    return judgement.verdict == Verdict::Good ? RawResult::Good : RawResult::Other;
}

/// Bytes that the request comes back in as an echo, in front of a reply.
int echoLength(const QByteArray& request, const QByteArray& received)
{
    if (!received.startsWith(request))
        return 0;
    const int function = request.size() < 2 ? 0 : functionOf(request);
    const bool isAnsweredBySame = function == 5 || function == 6 || function == LOOPBACK;
    const int length = static_cast<int>(request.size());
    return isAnsweredBySame && received.size() < 2 * length ? 0 : length;
}

} // namespace

RawReply rawReplyOf(const QByteArray& request, const QByteArray& received)
{
    RawReply reply;
    const int echo = echoLength(request, received);
    const QByteArray bytes = received.mid(echo);
    reply.hasEcho = echo > 0;
    if (bytes.isEmpty())
        return reply;
    const int length = wholeLength(bytes);
    reply.frame = length > 0 ? bytes.left(length) : bytes;
    reply.behind = bytes.mid(static_cast<int>(reply.frame.size()));
    reply.result = length > 0 ? resultOf(request, reply.frame) : RawResult::Damaged;
    return reply;
}

} // namespace kx
