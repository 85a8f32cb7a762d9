#ifndef TARVELAN_REGISTERS_ADDRESS_SERIES_H
#define TARVELAN_REGISTERS_ADDRESS_SERIES_H

#include "driver/export.h"

#include <QtCore/QString>
#include <QtCore/QVector>

extern "C" {

/// Generates the addresses of `count` copies of a tag. Pure: touches no driver
/// state, may be called on any thread and from inside the value-change function.
/// @param regType register type name, exact and case-sensitive
/// @param start   first address as a number (also for X and Y)
/// @param count   copies; below 1 appends nothing. Time and memory grow with it,
///                without a limit.
/// @param step    added from copy to copy, wrapping at 32 bits
/// @param texts   one address text per copy is appended: octal for X and Y, else
///                decimal; a negative address prints as its unsigned 32-bit value
/// @param addrs   the same addresses as numbers are appended. Both vectors stay the
///                caller's and are not cleared.
/// @return 0 unknown type, nothing appended; 1 all within the type's highest
///         address; 2 at least one was past it and replaced by it. There is no
///         test against the lowest address.
KX_EXPORT int intf_multiCopy(const QString& regType, int start, int count, int step,
                             QVector<QString>& texts, QVector<int>& addrs);
}

#endif
