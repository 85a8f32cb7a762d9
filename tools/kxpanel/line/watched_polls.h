/// What is polled of the values that a window watches. Pure functions.
#ifndef KX_KXPANEL_LINE_WATCHED_POLLS_H
#define KX_KXPANEL_LINE_WATCHED_POLLS_H

#include "panel/plan/watched_ranges.h"
#include "panel/polling/polled_range.h"

namespace kxpanel
{

class TagList;

/// As the machine polls them.
QList<kx::PolledRange> polledRanges(const TagList& tags);

/// Those of other stations.
QList<kx::PolledRange> rangesWithout(const QList<kx::PolledRange>& polled,
                                     const QList<int>& stations);

/// Those of the stations that have a range.
QList<int> stationsAmong(const QList<int>& stations, const QList<kx::PolledRange>& polled);

kx::WatchedRanges watchedRanges(const QList<kx::PolledRange>& polled);

} // namespace kxpanel

#endif
