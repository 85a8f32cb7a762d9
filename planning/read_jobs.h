#ifndef TARVELAN_PLANNING_READ_JOBS_H
#define TARVELAN_PLANNING_READ_JOBS_H

#include "driver/export.h"
#include "driver/records.h"

#include <QtCore/QList>

extern "C" {

/// Replaces the whole cyclic read plan by one that covers `keys`, in as few
/// requests as the maximum request length allows, and marks exactly those
/// addresses as watched. Cached values are kept.
///
/// Communication thread only; does not call the value-change function.
/// @param keys station, register type, first address and count (bits, or 16-bit
///             registers; 32CV two per value) of each range; not changed, stays
///             the caller's. Every watched address gets a cache record, so keep
///             counts within the type's range.
/// @return the number of cyclic read jobs, 0 for an empty list
KX_EXPORT int intf_addrMerge(QList<KEY_ADDRESS>& keys);
}

#endif
