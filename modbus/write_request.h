#ifndef TARVELAN_MODBUS_WRITE_REQUEST_H
#define TARVELAN_MODBUS_WRITE_REQUEST_H

#include "driver/export.h"
#include "driver/records.h"

struct RegisterType;

/// The write request for `job`: function 5 or 6 for a count of 1, function 15 or 16
/// for any other. Station 0 is sent as a broadcast, which no device answers.
///
/// Coils are packed by adding, so a payload byte other than 0 and 1 spills into
/// higher bits of its packed byte. When `count` is a multiple of 8 the last eight
/// coils are always sent as off. The byte count of function 16 wraps at 8 bits.
/// Payload bytes past 1024 count as 0, frame bytes past 1024 are not written, and
/// the odd last register of a 32CV write is 0.
/// @param job  station, address, count and data are read
/// @param type the job's register type; not null
FRAME_PRO writeRequest(const VARIABLE& job, const RegisterType* type);

/// Appends writeRequest() to the driver's `frameList`. An unknown type yields no frame.
/// @param job is not changed
KX_EXPORT void getWriteFrame(VARIABLE& job);

#endif
