#ifndef KX_KXPANEL_LINE_LIMIT_CYCLE_FORECAST_H
#define KX_KXPANEL_LINE_LIMIT_CYCLE_FORECAST_H

#include "kxpanel/line/limit/request_cost.h"
#include "panel/polling/polled_range.h"

#include <QtCore/QList>

namespace kxpanel
{

/// What one cycle costs on average when the polls take turns as a session's schedule has it, those
/// with intervals between the others, each answered. A cycle of intervals alone lasts as long as
/// the shortest of them, or as its requests take.
/// @param polls as kx::plannedPolls() gives them
kx::CycleCost forecastCycle(const QList<kx::PolledRange>& polls, const RequestCost& requestCost);

} // namespace kxpanel

#endif
