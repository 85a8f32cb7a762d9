#include "listen/frame_search.h"

#include "exchange/replies/reply_verdict.h"
#include "listen/frame_shape.h"

namespace kx
{

namespace
{

const int SHORTEST_FRAME = 4; // station, function, CRC

bool isFrame(const QByteArray& bytes, int length)
{
    return length >= SHORTEST_FRAME && length <= bytes.size() && endsWithItsCrc(bytes.left(length));
}

bool isStarted(const QByteArray& bytes, int length)
{
    return length == NEEDS_MORE || length > bytes.size();
}

} // namespace

FrameSearch frameAt(const QByteArray& bytes, const QByteArray& open, int block)
{
    const int answer = answerLength(open, bytes);
    if (isStarted(bytes, answer))
        return {0, true};
    if (isFrame(bytes, answer))
        return {answer, false};
    bool needsMore = false;
    for (const int length : {requestLength(bytes), replyLength(bytes)}) {
        if (isFrame(bytes, length))
            return {length, false};
        needsMore = needsMore || isStarted(bytes, length);
    }
    if (isFrame(bytes, block))
        return {block, false};
    const bool mayBeForeign = block == NEEDS_MORE && !isKnownFunction(bytes);
    return {0, needsMore || mayBeForeign};
}

} // namespace kx
