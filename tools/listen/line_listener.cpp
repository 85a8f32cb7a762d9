#include "listen/line_listener.h"

#include "listen/frame_shape.h"

namespace kx
{

namespace
{

// Adapters hold bytes back for up to 16 ms, and a busy computer for as long again.
const qint64 LONGEST_HOLD = 50000; // microseconds
const int LONGEST_FRAME = 256;     // bytes, of functions that are not known
// A line heard at a wrong baud rate brings no end of it.
const int MOST_NOISE = 256; // bytes

} // namespace

LineListener::LineListener(const LineTiming& timing, qint64 replyTimeout)
    : m_timing(timing), m_bytes(timing), m_matcher(replyTimeout)
{
}

qint64 LineListener::silence() const
{
    return LONGEST_HOLD + 2 * m_timing.frameGap();
}

Heard LineListener::add(const QByteArray& bytes, qint64 at)
{
    m_bytes.add(bytes, at);
    return takePieces(false);
}

Heard LineListener::settle(qint64 now)
{
    Heard heard = takePieces(true);
    report(m_matcher.expire(now), &heard);
    return heard;
}

Heard LineListener::finish(qint64 now)
{
    Heard heard = settle(now);
    report(m_matcher.finish(), &heard);
    return heard;
}

/// Bytes from there to the next pause; 0 when none has come.
int LineListener::lengthToPause(int from) const
{
    for (int i = from + 1; i < m_bytes.size(); ++i) {
        if (m_bytes.isAfterPause(i))
            return i - from;
    }
    return 0;
}

/// From a byte behind a pause to the next pause, as frameAt() takes it.
int LineListener::blockLength(int from, bool isSilent) const
{
    if (!m_bytes.isAfterPause(from))
        return 0;
    const int length = lengthToPause(from);
    if (length > 0)
        return length;
    const int rest = m_bytes.size() - from;
    if (isSilent)
        return rest;
    return rest > LONGEST_FRAME ? 0 : NEEDS_MORE;
}

FrameSearch LineListener::search(bool isSilent) const
{
    const int size = m_bytes.size() - m_skipped;
    if (size < 2)
        return {0, true};
    const QByteArray rest = QByteArray::fromRawData(m_bytes.bytes().constData() + m_skipped, size);
    const FrameSearch found = frameAt(rest, m_matcher.open(), blockLength(m_skipped, isSilent));
    // Adapters pause within frames, too; but what starts amid noise is hardly one.
    if (m_skipped > 0 && found.needsMore && lengthToPause(m_skipped) > 0)
        return {0, false};
    return found;
}

Heard LineListener::takePieces(bool isSilent)
{
    Heard heard;
    while (m_skipped < m_bytes.size()) {
        const FrameSearch found = search(isSilent);
        if (found.length > 0) {
            takeNoise(&heard);
            takePiece(found.length, true, &heard);
        } else if (found.needsMore && !isSilent) {
            break;
        } else {
            ++m_skipped;
        }
    }
    if (isSilent || m_skipped >= MOST_NOISE)
        takeNoise(&heard);
    return heard;
}

void LineListener::takeNoise(Heard* heard)
{
    if (m_skipped > 0)
        takePiece(m_skipped, false, heard);
    m_skipped = 0;
}

void LineListener::takePiece(int length, bool isFrame, Heard* heard)
{
    HeardPiece piece = m_bytes.take(length);
    piece.isFrame = isFrame;
    const QList<HeardExchange> over = m_matcher.take(&piece);
    m_counts.addPiece(piece);
    report(over, heard);
    if (!m_before.bytes.isEmpty())
        m_counts.addGap(piece, gapBetween(m_before, piece, m_timing.frameGap()));
    heard->pieces << piece;
    m_before = piece;
}

void LineListener::report(const QList<HeardExchange>& exchanges, Heard* heard)
{
    for (const HeardExchange& exchange : exchanges) {
        m_counts.add(exchange);
        heard->exchanges << exchange;
    }
}

} // namespace kx
