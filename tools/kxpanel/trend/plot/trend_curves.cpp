#include "kxpanel/trend/plot/trend_curves.h"

#include "kxpanel/trend/history/trend_outline.h"
#include "kxpanel/trend/model/trend_colours.h"

#include <QtCore/QtMath>

#include <qwt_plot.h>

namespace kxpanel
{

TrendSpan seenOf(const TrendChannel& channel, const TrendView& view)
{
    return view.from() > channel.until(view.now()) ? TrendSpan()
                                                   : channel.store->between(view.from(), view.to());
}

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

/// What is seen of the curves, from below: those above are asked first.
QVector<TrendCurves::Curve> TrendCurves::visibleCurves(double width) const
{
    QVector<Curve> curves;
    TrendCover cover;
    const QList<TrendChannel>& channels = m_channels->list();
    const QColor ground = plot()->canvas()->palette().color(QPalette::Base);
    for (int index = static_cast<int>(channels.size()) - 1; index >= 0; --index) {
        const TrendChannel& channel = channels.at(index);
        if (!channel.isShown || channel.axis != m_axis)
            continue;
        Curve curve{trendPen(channel.look, ground),
                    strokesOf(visibleOutline(channel, *m_view, width))};
        const QVector<QLineF> whole = curve.strokes.columns;
        cover.cut(&curve.strokes.columns);
        cover.add(whole);
        curves.prepend(curve);
    }
    return curves;
}

void TrendCurves::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                       const QRectF& canvasRect) const
{
    const auto place = [&](const QPointF& point) {
        return QPointF(xMap.transform(point.x()), yMap.transform(point.y()));
    };
    painter->save();
    painter->setClipRect(canvasRect);
    for (const Curve& curve : visibleCurves(canvasRect.width())) {
        QPen upright = curve.pen;
        upright.setStyle(Qt::SolidLine); // dashes of neighbours would be a carpet
        painter->setPen(upright);
        for (const QLineF& column : curve.strokes.columns)
            QwtPainter::drawLine(painter, place(column.p1()), place(column.p2()));
        painter->setPen(curve.pen);
        drawOutline(painter, curve.strokes.paths, place);
    }
    painter->restore();
}

} // namespace kxpanel
