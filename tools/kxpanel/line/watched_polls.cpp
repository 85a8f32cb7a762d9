#include "kxpanel/line/watched_polls.h"

#include "kxpanel/tags/tag_list.h"

#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

QList<kx::PolledRange> polledRanges(const TagList& tags)
{
    QList<kx::PolledRange> polled;
    for (const WatchedValue& value : tags.values())
        polled << kx::PolledRange{value.tag.range, std::max(value.tag.interval, 0)};
    return polled;
}

QList<kx::PolledRange> rangesWithout(const QList<kx::PolledRange>& polled,
                                     const QList<int>& stations)
{
    QList<kx::PolledRange> others;
    for (const kx::PolledRange& one : polled) {
        if (!stations.contains(one.range.station))
            others << one;
    }
    return others;
}

QList<int> stationsAmong(const QList<int>& stations, const QList<kx::PolledRange>& polled)
{
    QSet<int> asked;
    for (const kx::PolledRange& one : polled)
        asked << one.range.station;
    QList<int> among;
    for (const int station : stations) {
        if (asked.contains(station))
            among << station;
    }
    return among;
}

kx::WatchedRanges watchedRanges(const QList<kx::PolledRange>& polled)
{
    QList<kx::AddressRange> ranges;
    for (const kx::PolledRange& one : polled)
        ranges << one.range;
    return kx::WatchedRanges(ranges);
}

} // namespace kxpanel
