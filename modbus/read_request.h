#ifndef TARVELAN_MODBUS_READ_REQUEST_H
#define TARVELAN_MODBUS_READ_REQUEST_H

#include "driver/export.h"
#include "driver/records.h"

/// Appends the read request for `job` to the driver's `frameList`: function 1 for bit types,
/// function 3 for everything else. An unknown type reads holding registers at base 0.
/// Station 0 cannot answer, so it yields no frame.
/// @param job station, type, address and count are read; not changed
KX_EXPORT void getReadFrame(VARIABLE& job);

#endif
