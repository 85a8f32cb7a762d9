#include "panel/polling/poll_plan.h"

#include "panel/plan/driver_share.h"
#include "panel/plan/least_time.h"
#include "panel/plan/ranges_beyond.h"

#include <map>

namespace kx
{

namespace
{

QList<AddressRange> requestsFor(const QList<AddressRange>& ranges, const ReadRules& rules,
                                const RegisterPlanner& registers)
{
    if (!registers)
        return leastTimePieces(ranges, rules);
    const DriverShare share = driverShareOf(ranges, rules.usual.maxWords);
    return leastTimePieces(share.ofRules, rules) + registers(share.ofDriver);
}

} // namespace

QList<PolledRange> plannedPolls(const QList<PolledRange>& ranges, const ReadRules& rules,
                                const RegisterPlanner& registers)
{
    std::map<int, QList<AddressRange>> byInterval;
    for (const PolledRange& polled : ranges)
        byInterval[polled.interval] << polled.range;
    QList<PolledRange> polls;
    QList<AddressRange> covered;
    for (const auto& [interval, wanted] : byInterval) {
        const QList<AddressRange> missing = rangesBeyond(wanted, covered);
        for (const AddressRange& piece : requestsFor(missing, rules, registers)) {
            covered << piece;
            polls << PolledRange{piece, interval};
        }
    }
    return polls;
}

} // namespace kx
