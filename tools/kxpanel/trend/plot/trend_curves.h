#ifndef KX_KXPANEL_TREND_PLOT_TREND_CURVES_H
#define KX_KXPANEL_TREND_PLOT_TREND_CURVES_H

#include "kxpanel/trend/history/trend_strokes.h"
#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_view.h"

#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <qwt_painter.h>
#include <qwt_plot_item.h>
#include <qwt_scale_map.h>

namespace kxpanel
{

/// The curves on one of the two scales of a plot, each column of pixels from its lowest to its
/// highest value.
class TrendCurves : public QwtPlotItem
{
public:
    /// Both outlive it.
    TrendCurves(TrendSide side, const TrendChannels* channels, const TrendView* view);

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

private:
    struct Curve {
        QPen pen;
        TrendStrokes strokes;
    };

    QVector<Curve> visibleCurves(double width) const;

    TrendAxis m_axis;
    const TrendChannels* m_channels;
    const TrendView* m_view;
};

/// Draws a channel's curve; points of the outline become those of `place`.
template <typename Place>
void drawOutline(QPainter* painter, const QVector<QPolygonF>& outline, const Place& place)
{
    for (QPolygonF polygon : outline) {
        for (QPointF& point : polygon)
            point = place(point);
        if (polygon.size() == 1)
            painter->drawPoint(polygon.first());
        else if (polygon.size() == 2)
            QwtPainter::drawLine(painter, polygon.first(), polygon.last());
        else
            QwtPainter::drawPolyline(painter, polygon);
    }
}

/// What a plot shows of a channel: empty behind its end.
TrendSpan seenOf(const TrendChannel& channel, const TrendView& view);

/// The same as a curve, for a canvas of that width.
QVector<QPolygonF> visibleOutline(const TrendChannel& channel, const TrendView& view, double width);

} // namespace kxpanel

#endif
