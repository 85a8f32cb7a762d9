/// Stations as a panel's user types them.
#ifndef KX_ADDRESSES_STATION_TEXT_H
#define KX_ADDRESSES_STATION_TEXT_H

#include "addresses/export.h"

#include <QtCore/QString>

namespace kx
{

// 0 is the broadcast, which no station answers; from 248 on, numbers are reserved.
const int LOWEST_STATION = 1;
const int HIGHEST_STATION = 247;

/// Reads decimal digits. False when they are no station; `*station` is then untouched.
KXRUNTIME_EXPORT bool parseStation(const QString& digits, int* station);

} // namespace kx

#endif
