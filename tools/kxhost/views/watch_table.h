/// The live table as text. Pure functions.
#ifndef KX_KXHOST_VIEWS_WATCH_TABLE_H
#define KX_KXHOST_VIEWS_WATCH_TABLE_H

#include "panel/watch/watch_list.h"

#include <QtCore/QStringList>

namespace kx
{

/// "ok", "changed" for a second after a change, "no answer", "refused", "never
/// read". `now` in milliseconds, as WatchEntry::changedAt.
QString stateText(const WatchEntry& entry, qint64 now);

/// "1", "0x04D2", "0x000186A0"; nothing while the value is unknown.
QString hexValue(const WatchEntry& entry);

/// At most `width` characters of the line. Where more than blanks is cut off, the last is an
/// ellipsis: half a number would be another number.
QString cutRow(const QString& line, int width);

/// A heading and one row per entry, with names when an entry has one, at most `height` lines of at
/// most `width` characters; the last line tells how many entries did not fit.
/// @param longestName characters of the longest name of all entries, 0: none has one
QStringList tableRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width,
                      int height);

} // namespace kx

#endif
