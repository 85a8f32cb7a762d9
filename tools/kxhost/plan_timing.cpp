#include "kxhost/plan_timing.h"

#include <algorithm>

CycleCost& CycleCost::operator+=(const CycleCost& other)
{
    requests += other.requests;
    bytesSent += other.bytesSent;
    bytesExpected += other.bytesExpected;
    busy += other.busy;
    duration += other.duration;
    return *this;
}

double CycleCost::lineLoad() const
{
    return duration > 0 ? static_cast<double>(busy) / static_cast<double>(duration) : 0.0;
}

CycleCost exchangeCost(const PlanTiming& timing, int bytesSent, int bytesExpected)
{
    const qint64 gap = timing.line.frameGap();
    CycleCost cost;
    cost.requests = 1;
    cost.bytesSent = bytesSent;
    cost.bytesExpected = bytesExpected;
    cost.busy =
        timing.line.transmissionTime(bytesSent) + timing.line.transmissionTime(bytesExpected);
    cost.duration = cost.busy + std::max(timing.turnaround, gap) + gap;
    return cost;
}
