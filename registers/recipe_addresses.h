/// Recipe variables and their conversion into jobs.
#ifndef TARVELAN_REGISTERS_RECIPE_ADDRESSES_H
#define TARVELAN_REGISTERS_RECIPE_ADDRESSES_H

#include "driver/export.h"
#include "driver/records.h"

#include <QtCore/QVector>

extern "C" {

/// Replaces the recipe plan: keeps the variables of this driver's link, sorts
/// them and joins those whose registers touch or overlap into blocks of at most
/// `maxWords` registers, one request each.
///
/// A block takes its values from the recipe buffer contiguously, from the
/// position of its first variable on: lay variables that share or follow each
/// other in the registers out in the same order, without gaps. Of 32CV the count,
/// though in registers, is added to the address here: 32CV200 with a count of 2 is
/// joined with 32CV202, and the block covers 32CV201. A recipe of one variable is
/// planned, and sent, as two identical blocks.
///
/// Takes time as n log n for n variables, and while it plans some 1 KiB of memory for
/// each of them and for each block. The position of a running transfer is not reset.
///
/// Communication thread only; not from inside the value-change function. Does not
/// call it.
/// @param vars of each variable: link number, station, register type, first address (a
///             number), count (16-bit registers, 32CV two per value; bit types bits)
///             and offset in the recipe buffer (16-bit words). Read, not changed; stays
///             the caller's. Any number of them. A variable is never cut: one of more
///             than 512 registers, or of more than one request can carry, is not
///             transferred whole. Addresses, counts and offsets are not checked here; a
///             download ends at a block that lacks values, see intf_getSendFrame().
/// @return the number of variables kept, that is of this driver's link
KX_EXPORT int intf_setRcpAddress(QVector<_RCP_VAR_PRO>& vars);
}

/// Turns one block into a job, `job.kind` excepted.
/// @param withData nonzero: copy `count` 16-bit words of the recipe buffer from
///                 `bufOffset` on into the payload, low byte first whatever the
///                 processor's byte order, at most 1024 bytes; words before the
///                 buffer's start, or without a buffer, stay 0, so look
///                 for these first. Zero: the payload is all 0.
KX_EXPORT void rcpAddrToVar(_RCP_VAR_PRO var, VARIABLE& job, int withData);

#endif
