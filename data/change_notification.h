/// Which addresses to name to the runtime when a value has changed. The
/// value-change function is called synchronously; it may read and write values
/// from inside.
#ifndef TARVELAN_DATA_CHANGE_NOTIFICATION_H
#define TARVELAN_DATA_CHANGE_NOTIFICATION_H

#include "driver/export.h"

#include <QtCore/QString>

/// Change of one 16-bit value. Creates the record of the address, then, when the
/// values differ, reports by its monitor marks: single bits (name + "_bit",
/// address * 16 + bit; only with `bitStart` 0), the whole value, the 32-bit pair
/// that starts here and the one that ends here (name + "32").
/// @param oldValue, newValue not changed; stay the caller's
KX_EXPORT void _wordDataChange(int* oldValue, int* newValue, int station, QString regType,
                               int address, int bitStart);

/// Change of a value that is reported as a whole, when its record is watched.
/// @param isBit     nonzero: consult the bit group's marks instead
/// @param groupMode with `isBit`: nonzero reports each watched bit in which
///                  `newBits` and `oldBits` differ at `address` + bit, zero
///                  reports `address` when it is watched
KX_EXPORT void _OnlyOneDataTypeDataChange(int station, QString regType, int address, int isBit,
                                          unsigned char newBits, unsigned char oldBits,
                                          int groupMode);

/// Change of eight bits packed in one byte: reports each bit that is set in the
/// record's `bitMonitorMask` and differs, at `address` + bit.
/// @param newByte, oldByte not changed; stay the caller's
KX_EXPORT void _byteDataChange(unsigned char* newByte, unsigned char* oldByte, int station,
                               QString regType, int address);

#endif
