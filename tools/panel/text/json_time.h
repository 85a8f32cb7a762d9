#ifndef KX_PANEL_TEXT_JSON_TIME_H
#define KX_PANEL_TEXT_JSON_TIME_H

#include "addresses/export.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace kx
{

/// A time of day as all JSON shows it: in UTC, ISO 8601 with milliseconds, such as
/// "2026-11-22T10:00:00.123Z". It tells the two hours apart that a clock repeats when
/// summer time ends.
KXRUNTIME_EXPORT QString jsonTime(const QDateTime& time);

} // namespace kx

#endif
