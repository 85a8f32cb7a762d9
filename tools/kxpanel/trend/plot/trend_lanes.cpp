#include "kxpanel/trend/plot/trend_lanes.h"

#include "kxpanel/trend/model/trend_colours.h"
#include "kxpanel/trend/model/trend_number.h"

#include <qwt_plot.h>

namespace kxpanel
{

namespace
{

const double MOST_SHARE = 0.7;
const double SMALLEST_LETTERS = 0.6; // of the plot's font

bool isInLane(const TrendChannel& channel)
{
    return channel.isShown && channel.axis == TrendAxis::Lane;
}

/// In rows of text, the gap to the next lane included.
double rowsOf(const TrendChannel& channel)
{
    return channel.isDigital ? 1.6 : 3.2;
}

double allRows(const QList<TrendChannel>& channels)
{
    double rows = 0;
    for (const TrendChannel& channel : channels)
        rows += isInLane(channel) ? rowsOf(channel) : 0;
    return rows;
}

/// Values at the foot and at the head of a lane.
TrendView::Range rangeOf(const TrendChannel& channel, const TrendView& view)
{
    const TrendSpan span = seenOf(channel, view);
    if (channel.isDigital || !span.hasValues())
        return {0, 1};
    return drawnRange(span.lowest.value, span.highest.value);
}

QString labelOf(const TrendChannel& channel, const TrendView& view)
{
    if (channel.isDigital)
        return channel.name;
    const TrendSpan span = seenOf(channel, view);
    if (!span.hasValues())
        return channel.name;
    return QStringLiteral("%1  %2 … %3 %4")
        .arg(channel.name, numberText(span.lowest, channel.places),
             numberText(span.highest, channel.places), channel.unit);
}

/// How much of the height of the plot's letters a lane has.
double shareOfLetters(const QRectF& lane, const QwtPlot& plot)
{
    return lane.height() / plot.fontMetrics().height();
}

} // namespace

TrendLanes::TrendLanes(const TrendChannels* channels, const TrendView* view)
    : m_channels(channels), m_view(view)
{
    setAxes(QwtPlot::xBottom, QwtPlot::yLeft);
    setZ(21);
}

double TrendLanes::share(const QList<TrendChannel>& channels, double height, double row)
{
    return height > 0 ? qMin(MOST_SHARE, allRows(channels) * row / height) : 0;
}

void TrendLanes::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap&,
                      const QRectF& canvasRect) const
{
    const double rows = allRows(m_channels->list());
    if (rows <= 0)
        return;
    const double height = canvasRect.height() * m_share;
    QRectF lane = canvasRect;
    lane.setTop(canvasRect.bottom() - height);
    painter->save();
    painter->setClipRect(canvasRect);
    for (const TrendChannel& channel : m_channels->list()) {
        if (!isInLane(channel))
            continue;
        lane.setHeight(height * rowsOf(channel) / rows);
        drawLane(painter, xMap, lane, channel);
        lane.moveTop(lane.bottom());
    }
    painter->restore();
}

void TrendLanes::drawLane(QPainter* painter, const QwtScaleMap& xMap, const QRectF& lane,
                          const TrendChannel& channel) const
{
    const QPalette palette = plot()->canvas()->palette();
    const QColor& ground = palette.color(QPalette::Base);
    if (shareOfLetters(lane, *plot()) >= SMALLEST_LETTERS) { // else there would be little else
        painter->setPen(palette.color(QPalette::Mid));
        painter->drawLine(lane.topLeft(), lane.topRight());
    }
    const TrendView::Range range = rangeOf(channel, *m_view);
    const double gap = lane.height() * 0.15;
    const double scale = (lane.height() - 2 * gap) / (range.high - range.low);
    painter->save();
    painter->setClipRect(lane); // a file may say of a bit that it was 5
    painter->setPen(trendPen(channel.look, ground));
    drawOutline(painter, visibleOutline(channel, *m_view, lane.width()), [&](const QPointF& point) {
        return QPointF(xMap.transform(point.x()),
                       lane.bottom() - gap - (point.y() - range.low) * scale);
    });
    painter->restore();

    drawLabel(painter, lane.adjusted(gap, 0, 0, 0), channel);
}

/// In small letters where lanes are low; where they could not be read, the legend alone tells which
/// line it is.
void TrendLanes::drawLabel(QPainter* painter, const QRectF& lane, const TrendChannel& channel) const
{
    QFont font = plot()->font();
    const double share = shareOfLetters(lane, *plot());
    if (share < SMALLEST_LETTERS)
        return;
    if (share < 1)
        font.setPixelSize(static_cast<int>(plot()->fontInfo().pixelSize() * share));
    painter->setFont(font);
    const QString label = labelOf(channel, *m_view);
    const QRectF box =
        painter->boundingRect(lane, int(Qt::AlignLeft) | int(Qt::AlignVCenter), label);
    QColor veil = plot()->canvas()->palette().color(QPalette::Base);
    painter->setPen(trendColour(channel.look, veil));
    veil.setAlpha(200);
    painter->fillRect(box, veil);
    painter->drawText(box, Qt::AlignCenter, label);
}

} // namespace kxpanel
