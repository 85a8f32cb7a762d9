#include "kxhost/raw/raw_reply.h"

#include "addresses/request_limits.h"
#include "exchange/lines/mbap_frames.h"
#include "exchange/replies/driver_request.h"
#include "exchange/replies/reply_verdict.h"

namespace kx
{

namespace
{

const int LOOPBACK = 8; // the function that sends the request back, as single writes do

int functionOf(const QByteArray& frame)
{
    return static_cast<unsigned char>(frame.at(1));
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
    const FRAME_PRO asked = driverRequest(request);
    if (asked.recvLen == 0)
        return RawResult::Good;
    const Judgement judgement = judgeReply(asked, frame);
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
