/// The live table as text. Pure functions.
#ifndef KX_KXHOST_VIEWS_WATCH_WATCH_TABLE_H
#define KX_KXHOST_VIEWS_WATCH_WATCH_TABLE_H

#include "panel/watch/watch_list.h"

#include <QtCore/QStringList>

namespace kx
{

/// "ok", "changed" for a second after a change, "no answer", "refused", "never
/// read". `now` in milliseconds, as WatchEntry::changedAt.
QString stateText(const WatchEntry& entry, qint64 now);

/// At most `width` cells of the line, without characters that control a terminal. Where more
/// than blanks is cut off, it ends in an ellipsis: half a number would be another number.
QString cutRow(const QString& line, int width);

/// Cells of the longest name of the entries; 0: none has one.
int longestName(const QVector<WatchEntry>& entries);

/// A heading and one row per entry, with names when an entry of the whole list has one. Where
/// `width` cells are too few, the columns MODBUS, AGE and HEX go, in this order; then names are
/// shortened to an ellipsis at their end, and go; then STATION, STATE and VALUE. Without STATE
/// an address that is not Ok shows its state in place of its value. VALUE and HEX are as wide as
/// the longest of these entries, and 10 cells at least.
/// @param longestName of the whole list, so that columns stay where they are
QStringList tableRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width);

/// The same of the first entries, at most `height` lines; the last one tells how many entries did
/// not fit.
QStringList firstRows(const QVector<WatchEntry>& entries, int longestName, qint64 now, int width,
                      int height);

} // namespace kx

#endif
