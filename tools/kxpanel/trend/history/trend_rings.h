/// Rings of samples and rings of spans, asked alike.
#ifndef KX_KXPANEL_TREND_HISTORY_TREND_RINGS_H
#define KX_KXPANEL_TREND_HISTORY_TREND_RINGS_H

#include "kxpanel/trend/history/ring.h"
#include "kxpanel/trend/history/trend_sample.h"

namespace kxpanel
{

/// Items of a level that become one of the next.
const qint64 SPAN_GROWTH = 4;

inline TrendSpan asSpan(const TrendSample& sample)
{
    TrendSpan span;
    span.add(sample);
    return span;
}

inline const TrendSpan& asSpan(const TrendSpan& span)
{
    return span;
}

inline qint64 timeOf(const TrendSample& sample)
{
    return sample.time();
}

inline qint64 timeOf(const TrendSpan& span)
{
    return span.first.time();
}

/// Of the newest SPAN_GROWTH items.
template <typename T>
TrendSpan newestSpan(const Ring<T>& items)
{
    TrendSpan span;
    for (qint64 number = items.end() - SPAN_GROWTH; number < items.end(); ++number)
        span.add(asSpan(items.at(number)));
    return span;
}

/// Number of the last item before a time; -1 when the oldest kept one is not before it.
template <typename T>
qint64 lastItemBefore(const Ring<T>& items, qint64 time)
{
    if (items.isEmpty() || timeOf(items.at(items.first())) >= time)
        return -1;
    qint64 low = items.first();
    qint64 high = items.end();
    while (high - low > 1) {
        const qint64 middle = low + (high - low) / 2;
        if (timeOf(items.at(middle)) < time)
            low = middle;
        else
            high = middle;
    }
    return low;
}

} // namespace kxpanel

#endif
