#include "kxpanel/health/station_health.h"

#include "kxpanel/exchanges/station_sign.h"

namespace kxpanel
{

void StationHealth::add(const Exchange& exchange)
{
    counts.add(recordOf(exchange));
    if (isStationsReply(exchange)) {
        replies.add(exchange.turnaround);
        answeredAt = exchange.finishedAt;
    }
    const StationSign sign = signOf(exchange);
    if (sign != StationSign::Nothing)
        isSilent = sign == StationSign::Silent;
}

} // namespace kxpanel
