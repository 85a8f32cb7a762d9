#ifndef KX_LISTEN_LINE_COUNTS_H
#define KX_LISTEN_LINE_COUNTS_H

#include "listen/frame_gap.h"
#include "listen/heard_exchange.h"

#include <QtCore/QMap>

namespace kx
{

/// As HeardExchange::responseTime(), in microseconds.
struct ResponseTimes {
    qint64 count = 0;
    qint64 shortest = 0;
    qint64 longest = 0;
    qint64 sum = 0;

    void add(qint64 time);
    qint64 mean() const { return count == 0 ? 0 : sum / count; }
};

struct GapCounts {
    qint64 kept = 0;
    qint64 tooShort = 0;
    qint64 unclear = 0;
    qint64 shortest = 0; ///< microseconds, of those too short

    void add(const FrameGap& gap);
};

/// The requests to one station: the sum of what became of them.
struct StationCounts {
    qint64 requests = 0;
    qint64 answered = 0;
    qint64 refused = 0;
    qint64 unfitting = 0;
    qint64 damaged = 0;
    qint64 unanswered = 0;
    qint64 open = 0;
    ResponseTimes responses; ///< of answers and refusals
    GapCounts gaps;          ///< before its replies
};

/// What was heard on a line.
struct LineCounts {
    qint64 bytes = 0;
    qint64 frames = 0;
    QMap<int, StationCounts> stations; ///< by their number
    qint64 broadcasts = 0;
    qint64 strays = 0;
    qint64 noise = 0; ///< bytes in no frame, those of damaged replies among them
    GapCounts gaps;   ///< before requests

    void add(const HeardExchange& exchange);
    void addPiece(const HeardPiece& piece);
    /// @param piece the one behind the gap; noise is not judged
    void addGap(const HeardPiece& piece, const FrameGap& gap);
};

} // namespace kx

#endif
