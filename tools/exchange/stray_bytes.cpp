#include "exchange/stray_bytes.h"

#include "exchange/reply_verdict.h"

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
