#ifndef KX_EXCHANGE_REPLIES_STATISTICS_H
#define KX_EXCHANGE_REPLIES_STATISTICS_H

#include "addresses/export.h"
#include "exchange/lines/line_timing.h"
#include "exchange/replies/exchange_record.h"

namespace kx
{

/// Why requests were repeated or failed. Their sum is that of `repeated` and `failed`.
struct KXRUNTIME_EXPORT BadReplies {
    qint64 none = 0;        ///< nothing came until the time-out
    qint64 incomplete = 0;  ///< too few bytes came until the time-out
    qint64 damaged = 0;     ///< no frame in the bytes
    qint64 exceptions = 0;  ///< the station refused
    qint64 foreign = 0;     ///< only replies of other requests came
    qint64 lost = 0;        ///< the line was lost meanwhile
    qint64 broadcasts = 0;  ///< no station answers
    qint64 ignored = 0;     ///< a good reply that the driver did not take
    qint64 byteCounts = 0;  ///< the reply's byte count was wrong
    qint64 neverSilent = 0; ///< the line did not fall silent for the request

    qint64 sum() const;
};

/// What came without being asked for, or too late. None of it reached the driver.
struct ThrownAway {
    qint64 foreign = 0;    ///< whole replies of other stations or requests
    qint64 late = 0;       ///< whole replies to requests given up or repeated
    qint64 duplicates = 0; ///< whole replies like the one just taken
    qint64 echoes = 0;     ///< requests that came back
    qint64 bytes = 0;      ///< in no whole frame
};

/// Counts of finished exchanges: requests = accepted + repeated + failed. A
/// request in flight is not in them yet.
struct KXRUNTIME_EXPORT Statistics {
    qint64 requests = 0; ///< transmitted, or kept back by a line that never fell silent
    qint64 accepted = 0; ///< the driver took the reply
    qint64 repeated = 0; ///< bad or no reply; the driver asked again
    qint64 failed = 0;   ///< bad or no reply for the last time
    qint64 notSent = 0;  ///< requests that were not whole; not in `requests`
    BadReplies bad;
    ThrownAway thrownAway;
    qint64 heldBack = 0; ///< requests that waited for a late reply to come or to expire
    qint64 reopened = 0; ///< times that a lost line was opened again
    qint64 bytesSent = 0;
    qint64 bytesReceived = 0;

    void add(const ExchangeRecord& record);

    /// 0 while no time has passed. On a serial line never more than its characters
    /// allow, see `spentTime`.
    double requestsPerSecond(const LineTiming& timing, qint64 elapsedMilliseconds) const;

    /// Share of the time, 0 to 1, in which characters occupied the line. 0 on a
    /// network.
    double lineLoad(const LineTiming& timing, qint64 elapsedMilliseconds) const;

private:
    /// Microseconds that passed, but no fewer than the requests, their replies and a
    /// frame gap before each request take on that line: a pseudo-terminal carries its
    /// last reply in no time, which a short run would count as speed.
    double spentTime(const LineTiming& timing, qint64 elapsedMilliseconds) const;
};

} // namespace kx

#endif
