#ifndef TARVELAN_DATA_WRITE_COMPLETION_H
#define TARVELAN_DATA_WRITE_COMPLETION_H

#include "driver/export.h"

#include <QtCore/QString>

/// Settles every address of a write job in ascending order. Confirmed: the
/// written value becomes the value read, then the runtime is told (bits and words
/// always, 32CV when watched). Failed: the written value is abandoned and the
/// runtime told (bits always, words when watched and the values differ, 32CV when
/// watched).
/// @param count   of the job: bits, or registers (32CV: two per value)
/// @param success 1 confirmed, any other value failed
KX_EXPORT void _write_FailOrSuc(int station, QString regType, int address, int count, int success);

#endif
