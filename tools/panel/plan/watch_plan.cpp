#include "panel/plan/watch_plan.h"

#include "panel/plan/driver_share.h"
#include "panel/plan/least_time.h"
#include "panel/plan/plan_driver.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

PlannedRequest requestFor(const AddressRange& piece)
{
    PlannedRequest request;
    request.station = piece.station;
    request.type = piece.type;
    request.address = piece.address;
    request.count = piece.driverCount();
    request.bytesSent = READ_REQUEST_BYTES;
    request.bytesExpected = READ_REPLY_BYTES
                            + (piece.type->registerClass == BIT_CLASS
                                   ? (request.count + COILS_PER_BYTE - 1) / COILS_PER_BYTE
                                   : request.count * BYTES_PER_REGISTER);
    return request;
}

} // namespace

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
