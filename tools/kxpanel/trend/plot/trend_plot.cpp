#include "kxpanel/trend/plot/trend_plot.h"

#include "kxpanel/trend/plot/trend_curves.h"
#include "kxpanel/trend/plot/trend_drop.h"
#include "kxpanel/trend/plot/trend_lanes.h"
#include "kxpanel/trend/plot/trend_scales.h"

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtWidgets/QFrame>

#include <qwt_date_scale_engine.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <algorithm>

namespace kxpanel
{

namespace
{

const double AIR = 0.02; // of all values, above and below the curves

const TrendSide SIDES[] = {TrendSide::Left, TrendSide::Right};

int axisOf(TrendSide side)
{
    return side == TrendSide::Left ? QwtPlot::yLeft : QwtPlot::yRight;
}

int indexOf(TrendSide side)
{
    return side == TrendSide::Left ? 0 : 1;
}

TrendAxis trendAxisOf(TrendSide side)
{
    return side == TrendSide::Left ? TrendAxis::Left : TrendAxis::Right;
}

} // namespace

TrendPlot::TrendPlot(const TrendChannels* channels, TrendView* view, QWidget* parent)
    : QwtPlot(parent),
      m_channels(channels),
      m_view(view),
      m_grid(new QwtPlotGrid),
      m_lanes(new TrendLanes(channels, view)),
      m_hint(new QwtPlotTextLabel)
{
    setAcceptDrops(true);
    setAutoReplot(false);
    setAxisScaleDraw(xBottom, timeScale());
    setAxisScaleEngine(xBottom, new QwtDateScaleEngine(Qt::LocalTime));
    for (const TrendSide side : SIDES)
        setAxisScaleDraw(axisOf(side), valueScale());
    plotLayout()->setAlignCanvasToScales(true);
    m_grid->enableXMin(false);
    m_grid->attach(this);
    for (const TrendSide side : SIDES)
        (new TrendCurves(side, m_channels, m_view))->attach(this);
    m_lanes->attach(this);
    m_hint->attach(this);
    for (int cursor = 0; cursor < 2; ++cursor) {
        m_cursors[cursor] = new QwtPlotMarker(QString::number(cursor + 1));
        m_cursors[cursor]->setLineStyle(QwtPlotMarker::VLine);
        m_cursors[cursor]->setLabelAlignment(Qt::AlignTop | Qt::AlignRight);
        m_cursors[cursor]->setZ(30);
        m_cursors[cursor]->attach(this);
    }
    const int margin = fontMetrics().height() / 3;
    setContentsMargins(margin, margin, margin, 0);
    canvas()->setFocusPolicy(Qt::StrongFocus);
    canvas()->setCursor(Qt::CrossCursor);
    takePalette();
    refresh();
}

void TrendPlot::takePalette()
{
    setCanvasBackground(palette().brush(QPalette::Base));
    if (QFrame* frame = qobject_cast<QFrame*>(canvas()))
        frame->setFrameStyle(QFrame::NoFrame);
    QColor lines = palette().color(QPalette::Text);
    lines.setAlpha(40);
    m_grid->setPen(lines, 0);
    QwtText hint(tr("Drag values from the list onto this plot, or name them below."));
    hint.setColor(palette().color(QPalette::Disabled, QPalette::Text));
    hint.setFont(font());
    m_hint->setText(hint);
    for (QwtPlotMarker* cursor : m_cursors) {
        cursor->setLinePen(palette().color(QPalette::Highlight), 0, Qt::DashLine);
        QwtText label(cursor->title());
        label.setColor(palette().color(QPalette::HighlightedText));
        label.setBackgroundBrush(palette().brush(QPalette::Highlight));
        cursor->setLabel(label);
    }
}

void TrendPlot::refresh()
{
    const double row = fontMetrics().height();
    const double share =
        TrendLanes::share(m_channels->list(), canvas()->contentsRect().height(), row);
    m_lanes->setShare(share);
    placeTime();
    for (const TrendSide side : SIDES)
        placeValues(side, share);
    placeCursors();
    m_hint->setVisible(m_channels->list().isEmpty());
    replot();
}

void TrendPlot::placeTime()
{
    const int label = fontMetrics().horizontalAdvance(QStringLiteral("00:00:00.000"));
    // Room for half a label at either end, so that the canvas keeps its width while they move.
    axisWidget(xBottom)->setMinBorderDist(label / 2, label / 2);
    setAxisMaxMajor(xBottom, std::max(2, canvas()->width() * 2 / (3 * label)));
    setAxisScale(xBottom, static_cast<double>(m_view->from()), static_cast<double>(m_view->to()));
}

/// All that the curves of a scale reach in the time shown.
TrendView::Range TrendPlot::wantedValues(TrendSide side) const
{
    if (m_view->values(side))
        return *m_view->values(side);
    TrendSpan all;
    for (const TrendChannel& channel : m_channels->list()) {
        if (channel.isShown && channel.axis == trendAxisOf(side))
            all.add(seenOf(channel, *m_view));
    }
    TrendView::Range range = {0, 1};
    if (all.hasValues()) {
        range = drawnRange(all.lowest.value, all.highest.value);
        const double air =
            all.lowest.value < all.highest.value ? (range.high - range.low) * AIR : 0;
        range = {range.low - air, range.high + air};
    }
    double step = 0;
    axisScaleEngine(axisOf(side))
        ->autoScale(axisMaxMajor(axisOf(side)), range.low, range.high, step);
    return range;
}

/// The curves stand above the lanes, where the scale has no ticks.
void TrendPlot::placeValues(TrendSide side, double laneShare)
{
    const int axis = axisOf(side);
    const TrendAxis trendAxis = trendAxisOf(side);
    const bool isUsed = !unitsOn(m_channels->list(), trendAxis).isEmpty();
    enableAxis(axis, isUsed || side == TrendSide::Left);
    const int rows =
        static_cast<int>(canvas()->height() * (1 - laneShare)) / fontMetrics().height();
    setAxisMaxMajor(axis, qBound(2, rows / 2, 10));
    const TrendView::Range range = wantedValues(side);
    m_shown[indexOf(side)] = range;
    QwtScaleDiv scale =
        axisScaleEngine(axis)->divideScale(range.low, range.high, axisMaxMajor(axis), 5);
    scale.setLowerBound(range.low - (range.high - range.low) * laneShare / (1 - laneShare));
    setAxisScaleDiv(axis, scale);
    QwtText title(unitsOn(m_channels->list(), trendAxis).join(QLatin1String(", ")));
    title.setFont(font());
    if (laneShare > 0) // at the head of the scale, which ends above them
        title.setRenderFlags(side == TrendSide::Left ? Qt::AlignRight : Qt::AlignLeft);
    setAxisTitle(axis, title);
}

void TrendPlot::placeCursors()
{
    for (int cursor = 0; cursor < 2; ++cursor) {
        const std::optional<qint64> time = m_view->cursor(cursor);
        m_cursors[cursor]->setVisible(time.has_value());
        m_cursors[cursor]->setXValue(static_cast<double>(time.value_or(0)));
    }
}

qint64 TrendPlot::timeAt(double x) const
{
    return qRound64(canvasMap(xBottom).invTransform(x));
}

double TrendPlot::placeOf(qint64 time) const
{
    return canvasMap(xBottom).transform(static_cast<double>(time));
}

double TrendPlot::valueAt(TrendSide side, double y) const
{
    return canvasMap(axisOf(side)).invTransform(y);
}

double TrendPlot::placeOf(TrendSide side, double value) const
{
    return canvasMap(axisOf(side)).transform(value);
}

qint64 TrendPlot::pixelTime() const
{
    return std::max<qint64>(1, m_view->span() / std::max(1, canvas()->width()));
}

TrendView::Range TrendPlot::shownValues(TrendSide side) const
{
    return m_shown[indexOf(side)];
}

void TrendPlot::resizeEvent(QResizeEvent* event)
{
    QwtPlot::resizeEvent(event);
    emit resized();
}

void TrendPlot::changeEvent(QEvent* event)
{
    QwtPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        takePalette();
        emit resized();
    }
}

void TrendPlot::dragEnterEvent(QDragEnterEvent* event)
{
    takeDrag(event);
}

void TrendPlot::dropEvent(QDropEvent* event)
{
    if (takeDrag(event))
        emit valuesDropped(draggedValues(*event->mimeData()));
}

} // namespace kxpanel
