#ifndef KX_PANEL_PLAN_DRIVER_SHARE_H
#define KX_PANEL_PLAN_DRIVER_SHARE_H

#include "addresses/address_text.h"

#include <QtCore/QList>

namespace kx
{

/// What the driver joins to requests up to its limit of registers, and what it is not given.
struct DriverShare {
    QList<AddressRange> ofRules; ///< for leastTimePieces(): coils, and values beyond the limit
    QList<AddressRange> ofDriver;
};

/// @param maxWords the driver's limit
DriverShare driverShareOf(const QList<AddressRange>& ranges, int maxWords);

} // namespace kx

#endif
