#ifndef TARVELAN_DATA_WRITTEN_VALUES_H
#define TARVELAN_DATA_WRITTEN_VALUES_H

#include "driver/export.h"

#include <QtCore/QString>

/// Stores values written by the runtime beside the values read, and reports each
/// address whose visible value changes, before it is stored: read from inside the
/// value-change function it still has the previous value.
/// @param count bits, or registers (32CV: two per value)
/// @param data  payload layout of `VARIABLE::data`, long enough for `count`;
///              not changed, stays the caller's
KX_EXPORT void write_saveDataToArea(int station, QString regType, int address, int count,
                                    unsigned char* data);

#endif
