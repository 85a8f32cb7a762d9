#include "kxhost/commands/scan_stations.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <algorithm>

namespace
{

const int LOWEST_STATION = 1;
const int HIGHEST_STATION = 247;

bool takePart(const QString& part, QSet<int>* stations)
{
    static const QRegularExpression pattern(
        QString::fromLatin1("\\A([0-9]{1,3})(?:-([0-9]{1,3}))?\\z"));
    const QRegularExpressionMatch match = pattern.match(part);
    const int first = match.captured(1).toInt();
    const int last = match.captured(2).isEmpty() ? first : match.captured(2).toInt();
    if (!match.hasMatch() || first < LOWEST_STATION || last > HIGHEST_STATION || first > last)
        return false;
    for (int station = first; station <= last; ++station)
        stations->insert(station);
    return true;
}

} // namespace

bool parseStations(const QString& text, QList<int>* stations, QString* error)
{
    QSet<int> found;
    for (const QString& part : text.split(QLatin1Char(','))) {
        if (takePart(part, &found))
            continue;
        *error =
            QString::fromLatin1("--stations %1: '%2' is not a station (%3 to %4) or a range "
                                "such as 1-20")
                .arg(text, part, QString::number(LOWEST_STATION), QString::number(HIGHEST_STATION));
        return false;
    }
    *stations = found.values();
    std::sort(stations->begin(), stations->end());
    return true;
}
