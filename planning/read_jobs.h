#ifndef TARVELAN_PLANNING_READ_JOBS_H
#define TARVELAN_PLANNING_READ_JOBS_H

#include "driver/export.h"
#include "driver/records.h"

#include <QtCore/QList>

extern "C" {

/// Replaces the whole cyclic read plan by one that covers `keys`, in as few
/// requests as the maximum request length allows, and marks exactly those
/// addresses as watched. Cached values are kept. A read carries no payload: `data` of a job
/// is not filled, so in one that was in the list before it stays as it was.
///
/// A request may join SM addresses on both sides of SM256, where their coils are not
/// contiguous, and reads other coils from SM256 on: watch them more than `maxWords`
/// apart, or ask for them with intf_addConditionRead(), a range each.
///
/// Takes time as n log n for n entries, and in proportion to the addresses of all their
/// counts and to the records in the cache.
///
/// Communication thread only; not from inside the value-change function, which it
/// does not call.
/// @param keys station, register type, first address and count (bits, or 16-bit
///             registers; 32CV two per value) of each range; not changed, stays
///             the caller's. Any number of them. A range is never cut, so none
///             should be longer than one request can read. Every watched address
///             gets a cache record, of bit types every group of eight: keep addresses
///             and counts, which are not checked, within the type's range and counts
///             above 0.
/// @return the number of cyclic read jobs, 0 for an empty list
KX_EXPORT int intf_addrMerge(QList<KEY_ADDRESS>& keys);
}

#endif
