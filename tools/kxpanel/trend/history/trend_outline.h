#ifndef KX_KXPANEL_TREND_HISTORY_TREND_OUTLINE_H
#define KX_KXPANEL_TREND_HISTORY_TREND_OUTLINE_H

#include "kxpanel/trend/history/trend_store.h"

#include <QtGui/QPolygonF>

namespace kxpanel
{

/// Columns of time that a plot is drawn in: `count` of `step` milliseconds each, from `from` on.
struct TrendRaster {
    qint64 from = 0;
    qint64 step = 1;
    int count = 0;

    qint64 end() const { return from + step * count; }
    /// Of a range, each column a pixel or two wide; their borders stay where they are while the
    /// range moves, so that a curve does not flicker.
    static TrendRaster of(qint64 from, qint64 to, int pixels);
};

/// The curve as steps, each value held until the next: x is milliseconds since 1970, y the value.
/// A column with several values goes through its first, lowest, highest and last. Where there is a
/// gap, if only for one read, one polygon ends and another begins.
/// @param until where the last value ends
QVector<QPolygonF> trendOutline(const TrendStore& store, const TrendRaster& raster, qint64 until);

} // namespace kxpanel

#endif
