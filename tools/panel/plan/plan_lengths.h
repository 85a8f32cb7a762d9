/// Which maximum request length suits a list of addresses.
#ifndef KX_PANEL_PLAN_PLAN_LENGTHS_H
#define KX_PANEL_PLAN_PLAN_LENGTHS_H

#include "addresses/export.h"
#include "panel/plan/plan_request.h"
#include "panel/plan/plan_timing.h"

#include <QtCore/QList>

namespace kx
{

/// What the driver asks under one limit.
struct Plan {
    int maxWords = 0; ///< the driver's limit of registers; 0: none, they were chosen
    QList<PlannedRequest> requests;
};

struct LengthResult {
    int maxWords = 0;
    CycleCost cost;
    /// Bits and registers that are asked for in requests that a controller refuses:
    /// longer than Modbus allows, or past the split of their type.
    int unread = 0;
};

KXRUNTIME_EXPORT LengthResult resultOf(const Plan& plan, const WatchedRanges& watched,
                                       const PlanTiming& timing);

/// The index of the best: it reads the most of what is asked for, in the shortest
/// cycle, of which its requests need the least, at the lowest limit. -1 for an empty list.
KXRUNTIME_EXPORT int bestOf(const QList<LengthResult>& results);

/// The rows worth showing of results in rising order of limits: the first and the
/// last, each that is better than all before it, the first worse one behind the
/// best, and the one at `maxWords`.
KXRUNTIME_EXPORT QList<LengthResult> worthShowing(const QList<LengthResult>& results, int maxWords);

} // namespace kx

#endif
