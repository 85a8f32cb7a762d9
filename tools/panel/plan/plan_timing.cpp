#include "panel/plan/plan_timing.h"

#include <algorithm>

namespace kx
{

double CycleCost::lineLoad() const
{
    return duration > 0 ? static_cast<double>(busy) / static_cast<double>(duration) : 0.0;
}

/// A station tells the end of a request by the frame gap, unless it was seen to answer sooner.
qint64 PlanTiming::wait() const
{
    return isMeasured ? turnaround : std::max(turnaround, line.frameGap());
}

PlanTiming timingAt(int station, const ReadRules& rules)
{
    const StationRules own = rules.of(station);
    return {rules.line, own.turnaround, own.isMeasured};
}

CycleCost costOf(const PlanTiming& timing, int requests, qint64 bytesSent, qint64 bytesExpected)
{
    CycleCost cost;
    cost.requests = requests;
    cost.bytesSent = bytesSent;
    cost.bytesExpected = bytesExpected;
    cost.busy = timing.line.transmissionTime(bytesSent + bytesExpected);
    cost.needed = cost.busy + requests * (timing.wait() + timing.line.frameGap());
    cost.duration = cost.needed;
    return cost;
}

} // namespace kx
