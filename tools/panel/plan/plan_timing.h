/// How long a read cycle takes on a line.
#ifndef KX_PANEL_PLAN_PLAN_TIMING_H
#define KX_PANEL_PLAN_PLAN_TIMING_H

#include "addresses/export.h"
#include "panel/plan/read_rules.h"

#include <QtCore/QtGlobal>

namespace kx
{

struct KXRUNTIME_EXPORT PlanTiming {
    LineTiming line;
    // As of StationRules.
    qint64 turnaround = 5000;
    bool isMeasured = false;

    /// Microseconds from the end of a request to the first character of the reply, as they count.
    qint64 wait() const;
};

/// At a station that keeps the rules.
KXRUNTIME_EXPORT PlanTiming timingAt(int station, const ReadRules& rules);

struct KXRUNTIME_EXPORT CycleCost {
    int requests = 0;
    qint64 bytesSent = 0;
    qint64 bytesExpected = 0;
    qint64 busy = 0; ///< microseconds in which characters occupy the line
    /// Microseconds that its requests take, with replies and pauses; in what is left of the
    /// duration nothing is due.
    qint64 needed = 0;
    qint64 duration = 0; ///< microseconds

    /// Share of the time, 0 to 1, in which characters occupy the line.
    double lineLoad() const;
};

/// The cost of requests that are all answered: the characters both ways, and for
/// each request the turnaround and the frame gap before the next one may begin.
KXRUNTIME_EXPORT CycleCost costOf(const PlanTiming& timing, int requests, qint64 bytesSent,
                                  qint64 bytesExpected);

} // namespace kx

#endif
