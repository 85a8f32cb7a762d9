#ifndef KX_KXPANEL_TREND_MODEL_TREND_TEXT_H
#define KX_KXPANEL_TREND_MODEL_TREND_TEXT_H

#include "kxpanel/trend/model/trend_view.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace kxpanel
{

/// As all pages show numbers, whatever the language: "1234.5".
QString numberText(double number);

/// "800 ms", "2.655 s", "3 min 20.5 s", "1 h", "26 h 5 min"; of what goes back with a
/// minus. Hours are without their seconds.
QString spanText(qint64 milliseconds);

/// "UTC+1", "UTC-3:30" of a local time that there is twice, since the clock is set back; else
/// nothing.
QString offsetText(const QDateTime& time);

/// Where the cursors are, in local time, and how far apart to the millisecond; what to do while
/// there is none.
QString cursorText(const TrendView& view);

} // namespace kxpanel

#endif
