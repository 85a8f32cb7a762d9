#ifndef TARVELAN_MODBUS_WRITE_REQUEST_H
#define TARVELAN_MODBUS_WRITE_REQUEST_H

#include "driver/export.h"
#include "driver/records.h"

/// Appends the write request for `job` to the driver's `frameList`: function 5 or 6 for a
/// count of 1, function 15 or 16 for any other. An unknown type yields no frame. Station 0
/// is sent as a broadcast, which no device answers.
///
/// Coils are packed by adding, so a payload byte other than 0 and 1 spills into
/// higher bits of its packed byte. When `count` is a multiple of 8 the last eight
/// coils are always sent as off. The byte count of function 16 wraps at 8 bits.
/// Payload bytes past 1024 count as 0, frame bytes past 1024 are not written, and
/// the odd last register of a 32CV write is 0.
/// @param job station, type, address, count and data are read; not changed
KX_EXPORT void getWriteFrame(VARIABLE& job);

#endif
