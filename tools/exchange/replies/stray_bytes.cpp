#include "exchange/replies/stray_bytes.h"

#include "exchange/replies/reply_verdict.h"

namespace kx
{

namespace
{

const int MOST_UNSORTED = 4096; // bytes; a line that never falls silent brings no end of them

} // namespace

void StrayBytes::add(const QByteArray& bytes)
{
    m_bytes += bytes;
    const int excess = static_cast<int>(m_bytes.size()) - MOST_UNSORTED;
    if (excess <= 0)
        return;
    m_counts->bytes += excess;
    m_bytes.remove(0, excess);
}

void StrayBytes::sort(OwedReplies* owed, const FRAME_PRO* heldBack)
{
    // Noise may stand before a frame.
    while (!m_bytes.isEmpty()) {
        const int length = frameLengthOf(m_bytes);
        if (length > 0)
            throwAway(m_bytes.left(length), owed, heldBack);
        else
            ++m_counts->bytes;
        m_bytes.remove(0, length > 0 ? length : 1);
    }
}

void StrayBytes::throwAway(const QByteArray& frame, OwedReplies* owed, const FRAME_PRO* heldBack)
{
    const bool isFitting = heldBack && judgeReply(*heldBack, frame).verdict == Verdict::Good;
    const bool isAwaited = isFitting && owed->take(frame);
    if (!isAwaited && frame == m_lastTaken)
        ++m_counts->duplicates;
    else if (isAwaited || owed->isOwed(frame))
        ++m_counts->late;
    else
        ++m_counts->foreign;
}

} // namespace kx
