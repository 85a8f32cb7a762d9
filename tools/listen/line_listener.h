#ifndef KX_LISTEN_LINE_LISTENER_H
#define KX_LISTEN_LINE_LISTENER_H

#include "listen/exchange_matcher.h"
#include "listen/frame_search.h"
#include "listen/heard_bytes.h"
#include "listen/line_counts.h"

namespace kx
{

/// What some bytes made of those heard before.
struct Heard {
    QList<HeardPiece> pieces; ///< as they stood on the line
    QList<HeardExchange> exchanges;
};

/// Turns the bytes of a line into frames and exchanges, and counts them. Serial adapters glue
/// frames together and split them, so a pause alone ends none: see frameAt().
class LineListener
{
public:
    /// @param replyTimeout microseconds, as of ExchangeMatcher
    LineListener(const LineTiming& timing, qint64 replyTimeout);

    /// @param at when they were read, in microseconds since some moment
    Heard add(const QByteArray& bytes, qint64 at);

    /// To be called when no byte came for silence() until `now`: what is no whole frame by
    /// then is none.
    Heard settle(qint64 now);

    /// At the end of the listening.
    Heard finish(qint64 now);

    /// Microseconds after which a line, whatever adapter it is read through, is silent.
    qint64 silence() const;

    const LineCounts& counts() const { return m_counts; }

private:
    Heard takePieces(bool isSilent);
    FrameSearch search(bool isSilent) const;
    int lengthToPause(int from) const;
    int blockLength(int from, bool isSilent) const;
    void takeNoise(Heard* heard);
    void takePiece(int length, bool isFrame, Heard* heard);
    void report(const QList<HeardExchange>& exchanges, Heard* heard);

    LineTiming m_timing;
    HeardBytes m_bytes;
    ExchangeMatcher m_matcher;
    LineCounts m_counts;
    int m_skipped = 0;   ///< bytes at the beginning of m_bytes that begin no frame
    HeardPiece m_before; ///< the latest piece; without bytes at the beginning
};

} // namespace kx

#endif
