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
/// @param station station number
/// @param regType register type name, exact and case-sensitive
/// @param address first device address, as a number (X and Y: not the octal digits)
/// @param count   bits, or 16-bit registers (32CV: two per value, so count / 2
///                values); below 1 copies nothing, as does an unknown type. It has
///                no upper limit, and each address gets a record: stay within the
///                type's range.
/// @param out     the caller's, as long as `count` says: one byte per bit, two bytes
///                per register (low byte first), four bytes per 32CV value (least
///                significant first)
/// @return always 1
KX_EXPORT int intf_getData(int station, QString regType, int address, int count,
                           unsigned char* out);

/// Stores values in the cache at once and, unless the driver writes locally only,
/// queues writes to the device, in ascending order. X only reaches the cache. Bit types
/// are cut into jobs of at most 1024 bits, word types into jobs of at
/// most `maxWords` registers, of which a payload holds 512; with a limit of 0 no
/// word job is queued, with a negative one only, and whole, what is shorter than that
/// limit without its sign. A job of more than one coil and a multiple of eight of them
/// reaches the device with its last eight off, each job of 1024 among them: write at most
/// 1023 bits at once. Keep a write on one side of the split of M, SM and
/// SD, and one of 32CV within `maxWords`: what lies beyond goes to other addresses.
///
/// The queue holds 513 jobs; when it is full the newest replaces the last, which is
/// then never sent: its value stays in sight until the address is written again or
/// another value is read. Calls the value-change function, after queueing and before
/// storing each value, for each address whose visible value changes.
/// @param station, regType, address as in intf_getData(); station 0 is a broadcast,
///              which no controller answers
/// @param count as in intf_getData(); below 1 does nothing. Time and memory grow with
///              it, and `data` is read to its end: stay within the type's range.
/// @param data  layout as `out` of intf_getData(), but two bytes per register also
///              for an odd count of 32CV; not changed, stays the caller's
/// @param kind  stored in the jobs; a write is 2
/// @return always 1
KX_EXPORT int intf_setData(int station, QString regType, int address, int count,
                           unsigned char* data, int kind);
}

#endif
