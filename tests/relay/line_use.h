/// How well a master used a line. Pure functions.
#ifndef KX_TESTS_RELAY_LINE_USE_H
#define KX_TESTS_RELAY_LINE_USE_H

#include "exchange/lines/line_timing.h"
#include "relay/relay.h"

namespace kx
{

/// Gaps before requests, counted by their length in frame gaps.
struct GapCounts {
    int tooShort = 0;    ///< below 1
    int close = 0;       ///< 1 up to 1.1
    int fair = 0;        ///< 1.1 up to 1.5
    int longer = 0;      ///< 1.5 and more
    qint64 shortest = 0; ///< microseconds
    qint64 median = 0;
};

struct LineUse {
    int exchanges = 0;  ///< requests with a reply behind them
    int unanswered = 0; ///< requests without
    /// The limit's time for these exchanges by the time they took. The limit is, for each, the
    /// characters of request and reply, what the slave took between them, and one frame gap.
    double share = 0;
    double medianShare = 0; ///< of single exchanges: a busy moment of the machine does not show
    GapCounts gaps;
};

/// Of the requests but the last, whose time is not over.
LineUse lineUse(const QList<RelayedFrame>& frames, const LineTiming& timing);

} // namespace kx

#endif
