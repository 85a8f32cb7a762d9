#include "kxpanel/trend/history/trend_strokes.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const int STEP = 2; // points of a column with one step: where the curve comes from, where it goes

qint64 placeOf(const QLineF& column)
{
    return static_cast<qint64>(column.x1());
}

QLineF upright(const QPolygonF& polygon, int first, int end)
{
    double low = polygon.at(first).y();
    double high = low;
    for (int point = first + 1; point < end; ++point) {
        low = std::min(low, polygon.at(point).y());
        high = std::max(high, polygon.at(point).y());
    }
    const double x = polygon.at(first).x();
    return QLineF(x, low, x, high);
}

void split(const QPolygonF& polygon, TrendStrokes* strokes)
{
    const int size = static_cast<int>(polygon.size());
    int pathBegin = 0;
    const auto endPath = [&](int end) {
        if (end - pathBegin > 1 || size == 1)
            strokes->paths << polygon.mid(pathBegin, end - pathBegin);
    };
    for (int first = 0, end = 0; first < size; first = end) {
        end = first + 1;
        while (end < size && polygon.at(end).x() == polygon.at(first).x())
            ++end;
        if (end - first <= STEP)
            continue;
        endPath(first + 1);
        pathBegin = end - 1;
        strokes->columns << upright(polygon, first, end);
    }
    endPath(size);
}

} // namespace

TrendStrokes strokesOf(const QVector<QPolygonF>& outline)
{
    TrendStrokes strokes;
    for (const QPolygonF& polygon : outline)
        split(polygon, &strokes);
    return strokes;
}

void TrendCover::cut(QVector<QLineF>* columns) const
{
    QVector<QLineF> left;
    left.reserve(columns->size());
    for (const QLineF& column : qAsConst(*columns)) {
        const auto part = m_parts.constFind(placeOf(column));
        if (part == m_parts.constEnd() || part->high < column.y1() || part->low > column.y2()) {
            left << column;
            continue;
        }
        const double x = column.x1();
        if (column.y1() < part->low)
            left << QLineF(x, column.y1(), x, part->low);
        if (column.y2() > part->high)
            left << QLineF(x, part->high, x, column.y2());
    }
    *columns = left;
}

void TrendCover::add(const QVector<QLineF>& columns)
{
    for (const QLineF& column : columns) {
        const Part added = {column.y1(), column.y2()};
        Part& part = m_parts.insert(placeOf(column), m_parts.value(placeOf(column), added)).value();
        const bool isApart = part.high < added.low || part.low > added.high;
        if (!isApart)
            part = {std::min(part.low, added.low), std::max(part.high, added.high)};
        else if (added.high - added.low > part.high - part.low)
            part = added;
    }
}

} // namespace kxpanel
