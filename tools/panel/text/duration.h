/// Times as people type them.
#ifndef KX_PANEL_TEXT_DURATION_H
#define KX_PANEL_TEXT_DURATION_H

#include "addresses/export.h"

#include <QtCore/QString>

namespace kx
{

/// "5ms", "5", "2.5 ms", "800us", "0.1s", "5min" or "8h" as microseconds, at most `longest`; false
/// for anything else. A bare number is milliseconds.
KXRUNTIME_EXPORT bool parseDuration(const QString& text, qint64 longest, qint64* microseconds);

/// The same in whole milliseconds, rounded up, at most a day; for how often something is done.
KXRUNTIME_EXPORT bool parseInterval(const QString& text, int* milliseconds);

} // namespace kx

#endif
