/// The requests with which a session polls a list.
#ifndef KX_PANEL_PLAN_WATCH_PLAN_H
#define KX_PANEL_PLAN_WATCH_PLAN_H

#include "addresses/export.h"
#include "exchange/driver_library.h"
#include "panel/plan/plan_lengths.h"
#include "panel/plan/read_rules.h"

#include <optional>

namespace kx
{

/// As with SessionSettings::choosesLengths, for rules as of rulesWithin(). The plan's limit is 0.
KXRUNTIME_EXPORT Plan chosenPlan(const QList<AddressRange>& watched, const ReadRules& rules);

/// As without: registers as the driver joins them up to `maxWords`, see askForPlan(); coils, and
/// values of more registers than that, by the rules.
/// @return none while a session has the driver
KXRUNTIME_EXPORT std::optional<Plan> limitedPlan(const DriverEntryPoints& entryPoints,
                                                 const QList<AddressRange>& watched, int maxWords,
                                                 const ReadRules& rules);

} // namespace kx

#endif
