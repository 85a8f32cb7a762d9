#ifndef KX_KXPANEL_HEALTH_STATION_HEALTH_H
#define KX_KXPANEL_HEALTH_STATION_HEALTH_H

#include "kxpanel/exchanges/reply_times.h"
#include "kxpanel/machine/machine_events.h"

#include <QtCore/QMap>

namespace kxpanel
{

/// What is known of a station since the counts began.
struct StationHealth {
    kx::Statistics counts;
    ReplyTimes replies;    ///< of whole replies of its own, refusals among them
    qint64 answeredAt = 0; ///< milliseconds since 1970 in UTC; the latest of these, 0: none
    bool isSilent = false; ///< nothing came for its latest request, which had its last try

    void add(const Exchange& exchange);
};

/// Of all stations, by number.
using Stations = QMap<int, StationHealth>;

} // namespace kxpanel

#endif
