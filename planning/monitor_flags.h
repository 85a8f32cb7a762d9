#ifndef TARVELAN_PLANNING_MONITOR_FLAGS_H
#define TARVELAN_PLANNING_MONITOR_FLAGS_H

#include "driver/export.h"
#include "planning/address_span.h"
#include "registers/register_types.h"

#include <QtCore/QString>

/// `value` with bit number `bit` set (`set` nonzero) or cleared (0). A bit number
/// outside 0 to 31 selects no bit.
KX_EXPORT int _setBitValue(int value, int bit, int set);

/// Marks `count` elements from `address` on as watched, creating missing cache
/// records. Bit types mark bit (address mod 8) of `bitMonitorMask` on the record
/// of the group's first address; words and 32CV mark bit 0 of `monitorFlags`.
/// @param count bits, or registers (32CV: two per address); below 1 (32CV:
///              below 2) marks nothing, as does an unknown type
/// @return always 0
KX_EXPORT int _setDataAreaMonitorFlag(int station, QString regType, int address, int count);

/// The same for a known type.
void markWatched(const RegisterType* type, int station, int address, int count);

/// The same for all spans of known types, in their order.
void markWatched(const AddressSpans& spans);

/// Unwatches every cached address.
void clearMonitorFlags();

#endif
