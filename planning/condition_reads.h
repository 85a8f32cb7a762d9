#ifndef TARVELAN_PLANNING_CONDITION_READS_H
#define TARVELAN_PLANNING_CONDITION_READS_H

#include "driver/export.h"
#include "driver/records.h"

extern "C" {

/// Queues a one-off read, served ahead of the cyclic reads.
///
/// A range longer than the request limit (`maxWords` registers, or 8 times as
/// many bits when `key.bitIndex` is -1) is split; a limit of 0 leaves it whole,
/// and a count of 0 or less is one piece. A piece that is already waiting behind
/// the head of the queue is not queued twice. The queue holds 513 jobs; when it
/// is full the newest replaces the last.
///
/// When the piece queued last has been answered or has failed for good, the
/// value-change function is called with (-1, -1, "-1", r), r being 0, or -1 after
/// the failure. Only the failure of a condition read drops all waiting condition
/// reads, those queued from inside its report too; when an earlier piece fails
/// nothing is reported. A failed cyclic read, write or recipe leaves them waiting.
///
/// Communication thread only; may be called from inside the value-change
/// function; does not call it.
/// @param key  station, register type, first address (a number), count (bits, or
///             16-bit registers; 32CV two per value), `bitIndex`; not changed, stays the
///             caller's. Nothing is checked: keep the station above 0, since a read of
///             station 0 yields no request and stays at the head of the queue, and
///             keep the range within the type's, on one side of the split of
///             M, SM and SD, and one of 32CV within `maxWords`. However long it is,
///             the call takes no more than a few milliseconds; but a request that
///             fails for good marks as many cache records as it asked for.
/// @param kind stored in the jobs; a condition read is 3
/// @return always 1
KX_EXPORT int intf_addConditionRead(KEY_ADDRESS& key, int kind);
}

#endif
