#ifndef KX_KXHOST_JSON_TIME_H
#define KX_KXHOST_JSON_TIME_H

#include <QtCore/QDateTime>
#include <QtCore/QString>

/// A time of day as all JSON shows it: in UTC, ISO 8601 with milliseconds, such as
/// "2026-11-22T10:00:00.123Z". It tells the two hours apart that a clock repeats when
/// summer time ends.
QString jsonTime(const QDateTime& time);

#endif
