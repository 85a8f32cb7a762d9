/// Asks the driver itself what it would read.
#ifndef KX_PANEL_PLAN_PLAN_DRIVER_H
#define KX_PANEL_PLAN_PLAN_DRIVER_H

#include "addresses/export.h"
#include "exchange/driver_library.h"
#include "panel/plan/plan_lengths.h"

#include <optional>

namespace kx
{

/// Initialises the driver with that maximum request length, hands over the ranges
/// as `kxhost watch` does and walks through one cycle of its requests. Ranges must name their
/// station. Everything that the driver held before is discarded.
/// @return none while a session has the driver, which stays as it is
KXRUNTIME_EXPORT std::optional<Plan> askForPlan(const DriverEntryPoints& entryPoints,
                                                const QList<AddressRange>& watched, int maxWords);

} // namespace kx

#endif
