#ifndef KX_KXPANEL_TREND_HISTORY_TREND_STROKES_H
#define KX_KXPANEL_TREND_HISTORY_TREND_STROKES_H

#include <QtCore/QHash>
#include <QtCore/QLineF>
#include <QtGui/QPolygonF>

namespace kxpanel
{

/// A curve as it is painted: a column of its outline in which it goes to and fro is one line from
/// its lowest to its highest value, and what lies between such columns are paths.
struct TrendStrokes {
    QVector<QLineF> columns; ///< upright, from the lower end to the higher one
    QVector<QPolygonF> paths;
};

/// Of an outline, as trendOutline() gives it.
TrendStrokes strokesOf(const QVector<QPolygonF>& outline);

/// What curves that are painted later hide of the columns of those below them: of sixteen that fill
/// a plot, fifteen need no painting.
class TrendCover
{
public:
    /// Takes out of columns what is hidden.
    void cut(QVector<QLineF>* columns) const;
    /// Columns of a curve, which hide those below.
    void add(const QVector<QLineF>& columns);

private:
    struct Part {
        double low;
        double high;
    };

    QHash<qint64, Part> m_parts; ///< by the column's time
};

} // namespace kxpanel

#endif
