/// What dump, compare and restore print. Text and JSON of one thing stand beside each other.
#ifndef KX_KXHOST_DUMP_DUMP_VIEWS_H
#define KX_KXHOST_DUMP_DUMP_VIEWS_H

#include "panel/dump/differences.h"
#include "panel/dump/unread_ranges.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace kx
{

/// "1 D100 file 1234 controller 1300", and behind a comma how it came about, if that is given.
QString differenceRow(const Difference& difference, const QString& cause = QString());
/// Of the event "difference".
QJsonObject differenceJson(const Difference& difference, const QString& cause = QString());

/// {"station":1,"address":"D100","count":4}
QJsonObject rangeJson(const AddressRange& range);
/// The same of each, with its reason as "failure".
QJsonArray unreadJson(const QList<UnreadRange>& unread);
/// A line on standard error for each.
void complainOf(const QList<UnreadRange>& unread);

/// "station 1", "stations 1 and 2", "stations 1, 2 and 3".
QString stationsText(const QList<Assignment>& assignments);

} // namespace kx

#endif
