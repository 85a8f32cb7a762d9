#include "kxpanel/trend/plot/trend_curves.h"

#include "kxpanel/trend/history/trend_outline.h"
#include "kxpanel/trend/model/trend_colours.h"

#include <QtCore/QtMath>

#include <qwt_plot.h>

namespace kxpanel
{

QVector<QPolygonF> visibleOutline(const TrendChannel& channel, const TrendView& view, double width)
{
    const TrendRaster raster = TrendRaster::of(view.from(), view.to(), qCeil(width));
    return trendOutline(*channel.store, raster, channel.until(view.now()));
}

TrendCurves::TrendCurves(TrendSide side, const TrendChannels* channels, const TrendView* view)
    : m_axis(side == TrendSide::Left ? TrendAxis::Left : TrendAxis::Right),
      m_channels(channels),
      m_view(view)
{
    setAxes(QwtPlot::xBottom, side == TrendSide::Left ? QwtPlot::yLeft : QwtPlot::yRight);
    setZ(20);
}

void TrendCurves::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                       const QRectF& canvasRect) const
{
    const QColor ground = plot()->canvas()->palette().color(QPalette::Base);
    painter->save();
    painter->setClipRect(canvasRect);
    for (const TrendChannel& channel : m_channels->list()) {
        if (!channel.isShown || channel.axis != m_axis)
            continue;
        painter->setPen(trendPen(channel.look, ground));
        drawOutline(painter, visibleOutline(channel, *m_view, canvasRect.width()),
                    [&](const QPointF& point) {
                        return QPointF(xMap.transform(point.x()), yMap.transform(point.y()));
                    });
    }
    painter->restore();
}

} // namespace kxpanel
