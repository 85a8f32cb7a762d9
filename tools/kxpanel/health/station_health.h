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
    ReplyTimes replies;    ///< of whole replies, refusals among them
    qint64 answeredAt = 0; ///< milliseconds since 1970 in UTC; the latest whole reply, 0: none
    bool isSilent = false; ///< nothing came for its latest request, which had its last try

    void add(const Exchange& exchange);
};

/// Of all stations, by number.
using Stations = QMap<int, StationHealth>;

/// What was thrown away and waited for on the line since `begin`.
struct LineFaults {
    kx::ThrownAway thrownAway;
    qint64 heldBack = 0; ///< requests that waited for a late reply to come or to expire
    qint64 reopened = 0; ///< times that a lost line was opened again
};

/// The difference of two states of one run.
LineFaults faultsSince(const kx::Statistics& begin, const kx::Statistics& now);

} // namespace kxpanel

#endif
