#include "panel/plan/plan_timing.h"

#include <algorithm>

namespace kx
{

double CycleCost::lineLoad() const
{
    return duration > 0 ? static_cast<double>(busy) / static_cast<double>(duration) : 0.0;
}

CycleCost costOf(const PlanTiming& timing, int requests, qint64 bytesSent, qint64 bytesExpected)
{
    const qint64 gap = timing.line.frameGap();
    CycleCost cost;
    cost.requests = requests;
    cost.bytesSent = bytesSent;
    cost.bytesExpected = bytesExpected;
    cost.busy = timing.line.transmissionTime(bytesSent + bytesExpected);
    cost.duration = cost.busy + requests * (std::max(timing.turnaround, gap) + gap);
    return cost;
}

} // namespace kx
