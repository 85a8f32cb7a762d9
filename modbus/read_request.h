#ifndef TARVELAN_MODBUS_READ_REQUEST_H
#define TARVELAN_MODBUS_READ_REQUEST_H

#include "driver/export.h"
#include "driver/records.h"

/// Appends the read request for `job` to the driver's `frameList`: function 1 for
/// bit types, function 3 for everything else. Station 0 cannot answer, so it
/// yields no frame. An unknown type reads holding registers at base 0.
/// @param job station, type, address and count are read; nothing is changed
KX_EXPORT void getReadFrame(VARIABLE& job);

#endif
