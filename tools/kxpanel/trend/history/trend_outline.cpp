#include "kxpanel/trend/history/trend_outline.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

/// Builds the polygons from left to right.
class Outline
{
public:
    void moveTo(double x, const TrendSpan& column)
    {
        if (column.hasGap())
            return leaveOut(x, column);
        m_isLeftOut = false;
        add(x, column.first.value);
        addExtremes(x, column);
        add(x, column.last.value);
    }

    /// The last value holds until there.
    void end(double x)
    {
        if (m_polygon.isEmpty())
            return;
        add(x, m_polygon.last().y());
        m_polygons << m_polygon;
        m_polygon.clear();
    }

    QVector<QPolygonF> polygons() const { return m_polygons; }

private:
    /// The column stays free, so that its gap is seen, unless there is more to it than one value
    /// that its neighbours show. Of such in a row every other one is drawn, as dots.
    void leaveOut(double x, const TrendSpan& column)
    {
        end(x);
        const bool isAlone = column.first.isGap() && column.last.isGap();
        const bool isSeen = isAlone || m_isLeftOut || column.lowest.value != column.highest.value;
        m_isLeftOut = !column.hasValues() || !isSeen;
        if (m_isLeftOut)
            return;
        addExtremes(x, column);
        end(x);
    }

    void addExtremes(double x, const TrendSpan& column)
    {
        const bool isLowFirst = column.lowest.time() <= column.highest.time();
        add(x, (isLowFirst ? column.lowest : column.highest).value);
        add(x, (isLowFirst ? column.highest : column.lowest).value);
    }

    void add(double x, double y)
    {
        if (!m_polygon.isEmpty() && m_polygon.last().x() < x && m_polygon.last().y() != y)
            append(QPointF(x, m_polygon.last().y()));
        append(QPointF(x, y));
    }

    /// Of points in a row along one value, two are enough.
    void append(const QPointF& point)
    {
        const int size = static_cast<int>(m_polygon.size());
        const bool goesOn = size > 1 && m_polygon.at(size - 1).y() == point.y()
                            && m_polygon.at(size - 2).y() == point.y();
        if (goesOn)
            m_polygon.last() = point;
        else if (size == 0 || m_polygon.last() != point)
            m_polygon << point;
    }

    QVector<QPolygonF> m_polygons;
    QPolygonF m_polygon;
    bool m_isLeftOut = false; ///< the column before shows nothing
};

} // namespace

TrendRaster TrendRaster::of(qint64 from, qint64 to, int pixels)
{
    TrendRaster raster;
    const qint64 span = std::max<qint64>(to - from, 1);
    raster.step = std::max<qint64>((span + pixels - 1) / std::max(pixels, 1), 1);
    raster.from = from - from % raster.step;
    raster.count = static_cast<int>((to - raster.from) / raster.step) + 1;
    return raster;
}

QVector<QPolygonF> trendOutline(const TrendStore& store, const TrendRaster& raster, qint64 until)
{
    const QVector<TrendSpan> columns = store.columns(raster.from, raster.step, raster.count, until);
    Outline outline;
    qint64 begin = raster.from;
    for (const TrendSpan& column : columns) {
        if (!column.isEmpty())
            outline.moveTo(static_cast<double>(begin), column);
        begin += raster.step;
    }
    outline.end(static_cast<double>(std::min(raster.end(), until)));
    return outline.polygons();
}

} // namespace kxpanel
