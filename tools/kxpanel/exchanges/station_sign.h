#ifndef KX_KXPANEL_EXCHANGES_STATION_SIGN_H
#define KX_KXPANEL_EXCHANGES_STATION_SIGN_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// What an exchange tells of the station that was asked.
enum class StationSign {
    Nothing, ///< it has another try, or it was not the station's fault
    Heard,   ///< whatever came was not nothing
    Silent   ///< nothing came to the last try, or a gateway says that nothing did
};

StationSign signOf(const Exchange& exchange);

/// The station itself sent a whole reply, a refusal for one, so that its turnaround is the
/// station's: a gateway's excuse is none.
bool isStationsReply(const Exchange& exchange);

} // namespace kxpanel

#endif
