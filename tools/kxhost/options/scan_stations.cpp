#include "kxhost/options/scan_stations.h"

#include "addresses/station_text.h"
#include "system/translated_text.h"

#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <algorithm>

namespace kx
{

namespace
{

bool takePart(const QString& part, QSet<int>* stations)
{
    const QStringList ends = part.split(QLatin1Char('-'));
    int first = 0;
    int last = 0;
    if (ends.size() > 2 || !parseStation(ends.first(), &first) || !parseStation(ends.last(), &last)
        || first > last)
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
            Text::tr("--stations %1: '%2' is not a station (%3 to %4) or a range "
                     "such as 1-20")
                .arg(text, part, QString::number(LOWEST_STATION), QString::number(HIGHEST_STATION));
        return false;
    }
    *stations = found.values();
    std::sort(stations->begin(), stations->end());
    return true;
}

} // namespace kx
