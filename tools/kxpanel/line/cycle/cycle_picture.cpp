#include "kxpanel/line/cycle/cycle_picture.h"

#include "kxpanel/line/cycle/cycle_painter.h"
#include "kxpanel/line/cycle/cycle_words.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <cmath>

namespace kxpanel
{

namespace
{

const int FIRST_CYCLES = 3; // that are shown until the person chooses
const double ZOOM_STEP = 1.25;
const double PAGE = 0.8; // of what is seen

double xOf(const QMouseEvent* event)
{
    return event->pos().x();
}

} // namespace

CyclePicture::CyclePicture(const LineRecord* record, QWidget* parent)
    : QWidget(parent), m_record(record)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Requests on the line"));
    setToolTip(tr("Each request as it ran, a row for each station. Wheel or + and - zoom, drag or "
                  "Page Up and Page Down move, Left and Right select, Space pauses, End shows the "
                  "latest."));
}

void CyclePicture::onRecordChanged()
{
    const ExchangeHistory& history = m_record->history();
    if (m_selected >= 0 && !history.has(m_selected))
        select(-1);
    if (history.size() == 0)
        m_isFitted = false;
    else if (m_isLive && !m_isFitted && m_record->latestCycles(FIRST_CYCLES).count == FIRST_CYCLES)
        showCycles(FIRST_CYCLES);
    if (!m_isLive)
        return;
    if (history.size() > 0)
        m_axis.setEnd(m_record->mark(history.end() - 1).times.replyEnded);
    changeView();
}

void CyclePicture::setLive(bool live)
{
    if (live == m_isLive)
        return;
    m_isLive = live;
    emit liveChanged(live);
    if (live)
        onRecordChanged();
}

void CyclePicture::showCycles(int cycles)
{
    const qint64 time = m_record->latestCycles(cycles).time;
    if (time <= 0)
        return;
    m_isFitted = true;
    m_axis.setSpan(time);
    changeView();
}

void CyclePicture::zoom(double factor)
{
    m_isFitted = true;
    // What comes is at the end.
    m_axis.zoom(factor, m_axis.left() + m_axis.width() * (m_isLive ? 1.0 : 0.5));
    changeView();
}

QSize CyclePicture::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 12};
}

QSize CyclePicture::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 5};
}

void CyclePicture::changeView()
{
    if (!isVisible())
        return;
    update();
    emit shown();
}

void CyclePicture::pan(double pixels)
{
    setLive(false);
    m_axis.pan(pixels);
    changeView();
}

void CyclePicture::select(qint64 place)
{
    m_selected = place;
    tell(place);
    update();
}

void CyclePicture::tell(qint64 place)
{
    const qint64 shownPlace = place >= 0 ? place : m_selected;
    emit told(m_record->history().has(shownPlace) ? exchangeWords(*m_record, shownPlace)
                                                  : QString());
}

void CyclePicture::bringIntoView(qint64 place)
{
    const ExchangeTimes& times = m_record->mark(place).times;
    if (times.sent < m_axis.from())
        m_axis.pan(m_axis.xOf(times.sent) - m_axis.left() - m_axis.width() / 10);
    else if (times.replyEnded > m_axis.to())
        m_axis.pan(m_axis.xOf(times.replyEnded) - m_axis.left() - m_axis.width() * 0.9);
    changeView();
}

void CyclePicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (m_record->history().size() == 0) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(rect(), Qt::AlignCenter, tr("No requests yet"));
        return;
    }
    CyclePainter(&painter, *m_record, m_axis, palette(), rect()).paint(m_selected);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void CyclePicture::resizeEvent(QResizeEvent*)
{
    const int numbers = fontMetrics().horizontalAdvance(QStringLiteral("00000"));
    m_axis.setPixels(numbers, width() - numbers - fontMetrics().averageCharWidth());
}

void CyclePicture::wheelEvent(QWheelEvent* event)
{
    const double notch = 120; // of angleDelta()
    if (event->modifiers() & Qt::ShiftModifier) {
        const QPoint turned = event->angleDelta();
        pan(-(turned.x() + turned.y()) / notch * m_axis.width() / 10);
        return;
    }
    m_isFitted = true;
    const double x = m_isLive ? m_axis.left() + m_axis.width() : event->position().x();
    m_axis.zoom(std::pow(ZOOM_STEP, -event->angleDelta().y() / notch), x);
    changeView();
}

void CyclePicture::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_pressedAt = m_draggedTo = xOf(event);
    m_isDragged = false;
}

void CyclePicture::mouseMoveEvent(QMouseEvent* event)
{
    const double x = xOf(event);
    if (m_pressedAt < 0) {
        tell(m_record->placeAt(m_axis.timeAt(x)));
        return;
    }
    m_isDragged = m_isDragged || std::abs(x - m_pressedAt) >= QApplication::startDragDistance();
    if (m_isDragged)
        pan(m_draggedTo - x);
    m_draggedTo = x;
}

void CyclePicture::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (!m_isDragged)
        select(m_record->placeAt(m_axis.timeAt(xOf(event))));
    m_pressedAt = -1;
}

void CyclePicture::leaveEvent(QEvent*)
{
    tell(m_selected);
}

void CyclePicture::keyPressEvent(QKeyEvent* event)
{
    if (!moveBy(event->key()))
        QWidget::keyPressEvent(event);
}

void CyclePicture::selectNext(int step)
{
    const ExchangeHistory& history = m_record->history();
    const qint64 place = m_selected < 0 ? history.end() - 1 : m_selected + step;
    if (!history.has(place))
        return;
    setLive(false); // what is looked at stays
    select(place);
    bringIntoView(place);
}

bool CyclePicture::moveBy(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        selectNext(key == Qt::Key_Left ? -1 : 1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        pan((key == Qt::Key_PageUp ? -PAGE : PAGE) * m_axis.width());
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        zoom(key == Qt::Key_Plus ? 1 / ZOOM_STEP : ZOOM_STEP);
        return true;
    case Qt::Key_Space:
    case Qt::Key_End:
        setLive(key == Qt::Key_End || !m_isLive);
        return true;
    case Qt::Key_Escape:
        select(-1);
        return true;
    default:
        return false;
    }
}

} // namespace kxpanel
