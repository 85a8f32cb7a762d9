#include "kxhost/dump/dump_views.h"

#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

#include <QtCore/QStringList>

namespace kx
{

QString differenceRow(const Difference& difference, const QString& cause)
{
    const AddressRange& address = difference.address;
    const QString row =
        QStringLiteral("%1 %2 file %3 controller %4")
            .arg(QString::number(address.station), addressText(address.type, address.address),
                 QString::number(difference.kept), QString::number(difference.read));
    return cause.isEmpty() ? row : row + QLatin1String(", ") + cause;
}

QJsonObject differenceJson(const Difference& difference, const QString& cause)
{
    const AddressRange& address = difference.address;
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("difference");
    json[QLatin1String("station")] = address.station;
    json[QLatin1String("address")] = addressText(address.type, address.address);
    json[QLatin1String("file")] = difference.kept;
    json[QLatin1String("controller")] = difference.read;
    if (!cause.isEmpty())
        json[QLatin1String("cause")] = cause;
    return json;
}

QJsonObject rangeJson(const AddressRange& range)
{
    QJsonObject json;
    json[QLatin1String("station")] = range.station;
    json[QLatin1String("address")] = addressText(range.type, range.address);
    json[QLatin1String("count")] = range.values;
    return json;
}

QJsonArray unreadJson(const QList<UnreadRange>& unread)
{
    QJsonArray array;
    for (const UnreadRange& range : unread) {
        QJsonObject json = rangeJson(range.range);
        json[QLatin1String("failure")] = range.reason;
        array.append(json);
    }
    return array;
}

void complainOf(const QList<UnreadRange>& unread)
{
    for (const UnreadRange& range : unread)
        complain(QStringLiteral("%1: %2").arg(rangeText(range.range), range.reason),
                 EXIT_DEVICE_FAILED);
}

QString stationsText(const QList<Assignment>& assignments)
{
    QStringList numbers;
    for (const Assignment& assignment : assignments) {
        const QString number = QString::number(assignment.range.station);
        if (!numbers.contains(number))
            numbers << number;
    }
    if (numbers.size() == 1)
        return QLatin1String("station ") + numbers.first();
    const QString last = numbers.takeLast();
    return QStringLiteral("stations %1 and %2").arg(numbers.join(QLatin1String(", ")), last);
}

} // namespace kx
