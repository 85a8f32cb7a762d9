/// The runtime's reads and writes of cached values. Communication thread only;
/// both may be called from inside the value-change function.
#ifndef TARVELAN_DATA_HOST_ACCESS_H
#define TARVELAN_DATA_HOST_ACCESS_H

#include "driver/export.h"

#include <QtCore/QString>

extern "C" {

/// Copies cached values into `out`: the value written last while that write is
/// pending, else the value read last, also after a failure. An address never read
/// gives zeros and gets a cache record. Does not call the value-change function.
/// @param address first device address, as a number (X and Y: not the octal digits)
/// @param count   bits, or 16-bit registers (32CV: two per value, so count / 2
///                values); below 1 copies nothing, as does an unknown type
/// @param out     the caller's: one byte per bit, two bytes per register (low byte
///                first), four bytes per 32CV value (least significant first)
/// @return always 1
KX_EXPORT int intf_getData(int station, QString regType, int address, int count,
                           unsigned char* out);

/// Stores values in the cache at once and, unless the driver writes locally only,
/// queues writes to the device. X only reaches the cache. Bit types go as one job
/// (payload bytes past 1024 are sent as 0), word types are cut into jobs of at
/// most `maxWords` registers, of which a payload holds 512; with a limit of 0 no
/// word job is queued. The queue holds 513 jobs; when it is full the newest
/// replaces the last. Calls the value-change function, after queueing and before
/// storing each value, for each address whose visible value changes.
/// @param count as in intf_getData(); below 1 does nothing
/// @param data  layout as `out` of intf_getData(), but two bytes per register also
///              for an odd count of 32CV; not changed, stays the caller's
/// @param kind  stored in the jobs; a write is 2
/// @return always 1
KX_EXPORT int intf_setData(int station, QString regType, int address, int count,
                           unsigned char* data, int kind);
}

#endif
