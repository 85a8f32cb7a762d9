#include "kxpanel/trend/plot/trend_mouse.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QRubberBand>

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

const double ZOOM_OF_A_STEP = 1.25;
const double WHEEL_STEP = 120; // of QWheelEvent::angleDelta(), a notch

} // namespace

TrendMouse::TrendMouse(TrendPlot* plot, TrendView* view)
    : QObject(plot),
      m_plot(plot),
      m_view(view),
      m_band(new QRubberBand(QRubberBand::Rectangle, plot->canvas()))
{
    plot->canvas()->installEventFilter(this);
    plot->canvas()->setMouseTracking(true);
}

bool TrendMouse::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseMove:
        move(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::Wheel:
        wheel(*static_cast<QWheelEvent*>(event));
        event->accept();
        return true;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

std::optional<qint64> TrendMouse::time() const
{
    const QWidget* canvas = m_plot->canvas();
    if (!canvas->underMouse())
        return std::nullopt;
    return m_plot->timeAt(canvas->mapFromGlobal(QCursor::pos()).x());
}

int TrendMouse::cursorAt(double x) const
{
    const double reach = m_plot->fontMetrics().height() / 2.0;
    for (int cursor = 0; cursor < 2; ++cursor) {
        const std::optional<qint64> time = m_view->cursor(cursor);
        if (time && std::abs(m_plot->placeOf(*time) - x) <= reach)
            return cursor;
    }
    return -1;
}

void TrendMouse::press(const QMouseEvent& event)
{
    if (m_drag != Drag::None)
        return; // another button meanwhile
    m_begin = event.pos();
    m_button = event.button();
    const bool pans =
        event.button() == Qt::MiddleButton
        || (event.button() == Qt::LeftButton && event.modifiers() == Qt::ShiftModifier);
    m_cursor = cursorAt(event.pos().x());
    if (pans)
        m_drag = Drag::Pan;
    else if (event.button() == Qt::LeftButton)
        m_drag = m_cursor >= 0 ? Drag::Cursor : Drag::Band;
}

void TrendMouse::move(const QMouseEvent& event)
{
    const QPoint way = event.pos() - m_begin;
    if (m_drag == Drag::Cursor) {
        const qint64 time = m_plot->timeAt(event.pos().x());
        m_view->setCursor(m_cursor, qBound(m_view->from(), time, m_view->to()));
    } else if (m_drag == Drag::Pan) {
        m_view->moveBy(m_plot->timeAt(m_begin.x()) - m_plot->timeAt(event.pos().x()));
        m_begin = event.pos();
    } else if (m_drag == Drag::Band && way.manhattanLength() >= QApplication::startDragDistance()) {
        m_band->setGeometry(QRect(m_begin, event.pos()).normalized());
        m_band->show();
    } else if (m_drag == Drag::None) {
        const bool isOverCursor = cursorAt(event.pos().x()) >= 0;
        m_plot->canvas()->setCursor(isOverCursor ? Qt::SizeHorCursor : Qt::CrossCursor);
    }
}

void TrendMouse::release(const QMouseEvent& event)
{
    if (event.button() != m_button)
        return;
    if (m_drag == Drag::Band && m_band->isVisible()) {
        m_band->hide();
        takeBand(m_band->geometry());
    }
    m_drag = Drag::None;
}

/// Of the part that is on the plot. A band along the time leaves the values as they are: it is as
/// high as a hand is unsteady, or over lanes, where the scales have ended.
void TrendMouse::takeBand(const QRect& drawn)
{
    const QRect band = drawn.intersected(m_plot->canvas()->rect());
    const double least = 2 * m_plot->fontMetrics().height();
    for (const TrendSide side : {TrendSide::Left, TrendSide::Right}) {
        const double foot = m_plot->shownValues(side).low;
        if (std::min<double>(band.bottom(), m_plot->placeOf(side, foot)) - band.top() >= least)
            m_view->showValues(
                side, TrendView::Range{std::max(foot, m_plot->valueAt(side, band.bottom())),
                                       m_plot->valueAt(side, band.top())});
    }
    if (band.width() >= QApplication::startDragDistance())
        m_view->show(m_plot->timeAt(band.left()), m_plot->timeAt(band.right()));
}

void TrendMouse::wheel(const QWheelEvent& event)
{
    const double steps = event.angleDelta().y() / WHEEL_STEP;
    const double factor = std::pow(ZOOM_OF_A_STEP, -steps);
    if (event.modifiers() == Qt::ControlModifier)
        zoomValues(factor, event.position().y());
    else
        m_view->zoom(factor, m_plot->timeAt(event.position().x()));
}

void TrendMouse::zoomValues(double factor, double y)
{
    for (const TrendSide side : {TrendSide::Left, TrendSide::Right}) {
        const TrendView::Range shown = m_plot->shownValues(side);
        const double anchor = qBound(shown.low, m_plot->valueAt(side, y), shown.high);
        m_view->showValues(side, TrendView::Range{anchor - (anchor - shown.low) * factor,
                                                  anchor + (shown.high - anchor) * factor});
    }
}

} // namespace kxpanel
