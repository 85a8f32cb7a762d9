#include "kxpanel/health/station_health.h"

namespace kxpanel
{

void StationHealth::add(const Exchange& exchange)
{
    counts.add(recordOf(exchange));
    if (exchange.turnaround >= 0) {
        replies.add(exchange.turnaround);
        answeredAt = exchange.finishedAt;
        isSilent = false;
    } else if (exchange.isFinal) {
        isSilent = exchange.replyKind == kx::ReplyKind::None;
    }
}

LineFaults faultsSince(const kx::Statistics& begin, const kx::Statistics& now)
{
    LineFaults faults;
    faults.thrownAway = now.thrownAway;
    faults.thrownAway.foreign -= begin.thrownAway.foreign;
    faults.thrownAway.late -= begin.thrownAway.late;
    faults.thrownAway.duplicates -= begin.thrownAway.duplicates;
    faults.thrownAway.echoes -= begin.thrownAway.echoes;
    faults.thrownAway.bytes -= begin.thrownAway.bytes;
    faults.heldBack = now.heldBack - begin.heldBack;
    faults.reopened = now.reopened - begin.reopened;
    return faults;
}

} // namespace kxpanel
