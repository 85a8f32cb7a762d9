#ifndef KX_TOOLS_STATISTICS_H
#define KX_TOOLS_STATISTICS_H

#include "exchange/exchange_record.h"
#include "exchange/line_timing.h"

/// Counts of finished exchanges: requests = accepted + repeated + failed. A
/// request in flight is not in them yet.
struct Statistics {
    qint64 requests = 0;   ///< transmitted
    qint64 accepted = 0;   ///< the driver took the reply
    qint64 repeated = 0;   ///< bad or no reply; the driver asked again
    qint64 failed = 0;     ///< bad or no reply for the last time
    qint64 exceptions = 0; ///< among repeated and failed: the station refused
    qint64 foreign = 0;    ///< replies of other requests, thrown away
    qint64 notSent = 0;    ///< requests that were not whole; not in `requests`
    qint64 bytesSent = 0;
    qint64 bytesReceived = 0;

    void add(const ExchangeRecord& record);

    /// 0 while no time has passed.
    double requestsPerSecond(qint64 elapsedMilliseconds) const;

    /// Share of the time, 0 to 1, in which characters occupied the line. 0 on a
    /// network.
    double lineLoad(const LineTiming& timing, qint64 elapsedMilliseconds) const;
};

#endif
