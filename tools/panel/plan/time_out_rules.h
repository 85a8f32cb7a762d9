#ifndef KX_PANEL_PLAN_TIME_OUT_RULES_H
#define KX_PANEL_PLAN_TIME_OUT_RULES_H

#include "addresses/export.h"
#include "panel/plan/read_rules.h"

namespace kx
{

/// The rules with requests so short that their replies are whole when three quarters of the
/// time-out are over: the rest is for a station or an adapter that takes longer now and then. Of a
/// station that begins to reply when more than half is over, half of what it leaves. At 1200 baud
/// the longest reply takes two seconds. A network takes none.
/// @param timeOut microseconds from the end of a request
KXRUNTIME_EXPORT ReadRules rulesWithin(qint64 timeOut, const ReadRules& rules);

} // namespace kx

#endif
