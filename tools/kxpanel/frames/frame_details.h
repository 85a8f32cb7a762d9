#ifndef KX_KXPANEL_FRAMES_FRAME_DETAILS_H
#define KX_KXPANEL_FRAMES_FRAME_DETAILS_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// All that is known of an exchange, in rows: times, each field of request and reply by its name,
/// the bytes in hexadecimal, and what became of it. Pure; headings are translated.
QString detailsText(const Exchange& exchange);

} // namespace kxpanel

#endif
