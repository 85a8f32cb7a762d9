#include "kxpanel/health/histogram_view.h"

#include "kxpanel/exchanges/exchange_words.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

// The axis spans decades: from the one of the shortest reply to the one of the longest.
qint64 decadeBelow(qint64 time)
{
    qint64 decade = 1; // microsecond
    while (decade * 10 <= time)
        decade *= 10;
    return decade;
}

QString axisText(qint64 time)
{
    const qint64 second = 1000000;
    return time < second ? HistogramView::tr("%1 ms").arg(static_cast<double>(time) / 1000)
                         : HistogramView::tr("%1 s").arg(time / second);
}

} // namespace

HistogramView::HistogramView(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Reply times"));
    setToolTip(tr("Replies by the time from the end of the request to their first character. "
                  "Left and Right select a bar."));
}

void HistogramView::setTimes(const ReplyTimes& times, const QString& title)
{
    m_times = times;
    m_title = title;
    const QVector<qint64>& classes = times.classes();
    int shortest = 1; // no time at all stands at the edge: it has no decade
    while (shortest < classes.size() - 1 && classes.at(shortest) == 0)
        ++shortest;
    m_begin = decadeBelow(ReplyTimes::beginOf(shortest));
    m_end = 10 * decadeBelow(times.longest());
    const auto words = [&times](qint64 time) { return timeWords(times.count() > 0 ? time : -1); };
    setAccessibleDescription(
        tr("%1: %n replies, median %2, 99 % within %3", nullptr, static_cast<int>(times.count()))
            .arg(title, words(times.median()), words(times.quantile(0.99))));
    if (m_selected >= 0)
        emit classSelected(classWords(m_selected));
    update();
}

QString HistogramView::classWords(int index) const
{
    const QVector<qint64>& classes = m_times.classes();
    if (index < 0 || index >= classes.size())
        return QString();
    const qint64 count = classes.at(index);
    const double share = 100 * static_cast<double>(count) / static_cast<double>(m_times.count());
    return tr("%1 to %2: %n replies, %3 %", nullptr, static_cast<int>(count))
        .arg(index > 0 ? timeWords(ReplyTimes::beginOf(index)) : tr("%1 ms").arg(0),
             timeWords(ReplyTimes::beginOf(index + 1)))
        .arg(share, 0, 'f', 1);
}

QSize HistogramView::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 12};
}

QSize HistogramView::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 7};
}

QRectF HistogramView::plot() const
{
    const int row = fontMetrics().height();
    return QRectF(rect()).adjusted(2 * row, 3.5 * row, -2 * row, -1.5 * row);
}

double HistogramView::xOf(qint64 time) const
{
    const double begin = std::log(static_cast<double>(m_begin));
    const double end = std::log(static_cast<double>(m_end));
    const double at = std::log(static_cast<double>(std::max(time, qint64(1))));
    return plot().left() + plot().width() * std::clamp((at - begin) / (end - begin), 0.0, 1.0);
}

double HistogramView::endOf(int index) const
{
    const double least = xOf(ReplyTimes::beginOf(index)) + fontMetrics().averageCharWidth() / 2.0;
    return std::max(xOf(ReplyTimes::beginOf(index + 1)), least);
}

void HistogramView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    const int row = fontMetrics().height();
    painter.drawText(QRectF(row, 0.25 * row, width() - 2 * row, row), Qt::AlignLeft, m_title);
    if (m_times.count() == 0) {
        painter.drawText(plot(), Qt::AlignCenter, tr("No replies yet"));
        return;
    }
    paintBars(&painter);
    paintAxis(&painter);
    paintMark(&painter, m_times.median(), tr("median %1").arg(timeWords(m_times.median())), 0);
    const qint64 most = m_times.quantile(0.99);
    paintMark(&painter, most, tr("99 % within %1").arg(timeWords(most)), 1);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void HistogramView::paintBars(QPainter* painter) const
{
    const QVector<qint64>& classes = m_times.classes();
    const qint64 highest = *std::max_element(classes.begin(), classes.end());
    for (int index = 0; index < classes.size(); ++index) {
        if (classes.at(index) == 0)
            continue;
        const double left = xOf(ReplyTimes::beginOf(index));
        const double share = static_cast<double>(classes.at(index)) / static_cast<double>(highest);
        const double height = std::max(share * plot().height(), 2.0); // a single one is seen
        const QRectF bar(left, plot().bottom() - height, endOf(index) - left - 1, height);
        painter->fillRect(
            bar, palette().color(index == m_selected ? QPalette::Text : QPalette::Highlight));
    }
}

void HistogramView::paintAxis(QPainter* painter) const
{
    const QRectF area = plot();
    const int row = fontMetrics().height();
    painter->setPen(palette().color(QPalette::Text));
    painter->drawLine(area.bottomLeft(), area.bottomRight());
    for (const qint64 time : ticks()) {
        const double x = xOf(time);
        painter->drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + row / 4.0));
    }
    for (const qint64 time : labelledTimes()) {
        const QRectF place(xOf(time) - 4.0 * row, area.bottom() + row / 4.0, 8.0 * row, row);
        painter->drawText(place, Qt::AlignHCenter, axisText(time));
    }
}

QVector<qint64> HistogramView::ticks() const
{
    QVector<qint64> times;
    for (qint64 decade = m_begin; decade < m_end; decade *= 10)
        times << decade << 2 * decade << 5 * decade;
    return times << m_end;
}

QVector<qint64> HistogramView::labelledTimes() const
{
    const auto half = [this](qint64 time) {
        return fontMetrics().horizontalAdvance(axisText(time) + QLatin1Char(' ')) / 2.0;
    };
    QVector<qint64> times;
    double used = -half(m_begin); // up to where there is a text
    qint64 next = m_begin;        // the decade that needs its room
    for (const qint64 time : ticks()) {
        if (time == next)
            next *= 10;
        const double left = xOf(time) - half(time);
        const double right = xOf(time) + half(time);
        const bool isDecade = time * 10 == next;
        if (left < used || (!isDecade && right > xOf(next) - half(next)))
            continue;
        times << time;
        used = right;
    }
    return times;
}

void HistogramView::paintMark(QPainter* painter, qint64 time, const QString& text, int row) const
{
    const int height = fontMetrics().height();
    const double x = xOf(time);
    const double top = (1.25 + row) * height;
    QPen pen(palette().color(QPalette::Text));
    pen.setStyle(row == 0 ? Qt::DashLine : Qt::DotLine);
    painter->setPen(pen);
    painter->drawLine(QPointF(x, top), QPointF(x, plot().bottom()));
    const double width = fontMetrics().horizontalAdvance(text) + height / 2.0;
    const bool isRight = x + width > this->width(); // no room behind the mark
    const QRectF place(isRight ? x - width : x + height / 4.0, top, width, height);
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
}

void HistogramView::mouseMoveEvent(QMouseEvent* event)
{
    const double x = event->pos().x();
    for (int index = 0; index < m_times.classes().size(); ++index) {
        if (x >= xOf(ReplyTimes::beginOf(index)) && x < endOf(index)) {
            select(index);
            return;
        }
    }
    select(-1);
}

void HistogramView::leaveEvent(QEvent*)
{
    if (!hasFocus())
        select(-1);
}

void HistogramView::keyPressEvent(QKeyEvent* event)
{
    const int step = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    if (step == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const QVector<qint64>& classes = m_times.classes();
    const int size = static_cast<int>(classes.size());
    const bool isNone = m_selected < 0 && step < 0;
    int index = isNone ? size : std::min(m_selected, size); // it may be one of another station
    do
        index += step;
    while (index >= 0 && index < size && classes.at(index) == 0);
    if (index >= 0 && index < size)
        select(index);
}

void HistogramView::select(int index)
{
    if (index == m_selected)
        return;
    m_selected = index;
    emit classSelected(classWords(index));
    update();
}

} // namespace kxpanel
