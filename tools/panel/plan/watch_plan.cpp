#include "panel/plan/watch_plan.h"

#include "panel/plan/driver_share.h"
#include "panel/plan/least_time.h"
#include "panel/plan/piece_request.h"
#include "panel/plan/plan_driver.h"

namespace kx
{

Plan chosenPlan(const QList<AddressRange>& watched, const ReadRules& rules)
{
    Plan plan;
    for (const AddressRange& piece : leastTimePieces(watched, rules))
        plan.requests << requestFor(piece);
    return plan;
}

std::optional<Plan> limitedPlan(const DriverEntryPoints& entryPoints,
                                const QList<AddressRange>& watched, int maxWords,
                                const ReadRules& rules)
{
    const DriverShare share = driverShareOf(watched, maxWords);
    ReadRules limited = rules;
    limited.usual.maxWords = maxWords;
    std::optional<Plan> plan = askForPlan(entryPoints, share.ofDriver, maxWords);
    if (plan)
        plan->requests = chosenPlan(share.ofRules, limited).requests + plan->requests;
    return plan;
}

} // namespace kx
