#include "kxpanel/line/cycle/cycle_painter.h"

#include "kxpanel/exchanges/exchange_verdict.h"
#include "kxpanel/exchanges/exchange_words.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace kxpanel
{

CyclePainter::CyclePainter(QPainter* painter, const LineRecord& record, const TimeAxis& axis,
                           const QPalette& palette, const QRectF& area)
    : m_painter(painter),
      m_record(record),
      m_axis(axis),
      m_palette(palette),
      m_stations(record.stations()),
      m_colours(lineColours(palette)),
      m_row(painter->fontMetrics().height())
{
    m_lanes = area.adjusted(0, 0, 0, -1.5 * m_row);
}

QRectF CyclePainter::lane(int station) const
{
    const int lanes = std::max(static_cast<int>(m_stations.size()), 1);
    const double height = m_lanes.height() / lanes;
    const QRectF whole(m_axis.left(),
                       m_lanes.top() + static_cast<int>(m_stations.indexOf(station)) * height,
                       m_axis.width(), height);
    const double margin = std::min(height / 4, m_row / 2);
    return whole.adjusted(0, margin, 0, -margin);
}

void CyclePainter::paint(qint64 selected)
{
    paintLanes();
    paintTicks();
    m_painter->save();
    m_painter->setClipRect(QRectF(m_axis.left(), m_lanes.top(), m_axis.width(), m_lanes.height()));
    const qint64 first = m_record.firstAfter(m_axis.from());
    qint64 end = first;
    for (; end < m_record.history().end() && m_record.mark(end).times.sent < m_axis.to(); ++end)
        paintExchange(end);
    for (qint64 place = first; place < end; ++place)
        paintMarks(place);
    if (m_record.history().has(selected))
        paintSelection(selected);
    m_painter->restore();
}

void CyclePainter::paintLanes()
{
    m_painter->setPen(m_palette.color(QPalette::Text));
    double labelled = m_lanes.top() - m_row;
    for (const int station : m_stations) {
        const QRectF bar = lane(station);
        m_painter->fillRect(bar, m_palette.color(QPalette::AlternateBase));
        const double top = bar.center().y() - m_row / 2;
        if (top < labelled + m_row)
            continue; // no room for its number
        labelled = top;
        const QRectF place(m_lanes.left(), top, m_axis.left() - m_lanes.left() - m_row / 3, m_row);
        m_painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter, QString::number(station));
    }
}

void CyclePainter::paintTicks()
{
    const qint64 millisecond = 1000; // microseconds
    const QString widest = timeOfDay(0);
    const double width = m_painter->fontMetrics().horizontalAdvance(widest);
    const double apart = width * 1.6; // those at either end move inwards by half of theirs
    m_painter->setPen(m_palette.color(QPalette::Text));
    for (const qint64 time : m_axis.ticks(apart)) {
        const double x = m_axis.xOf(time);
        m_painter->drawLine(QPointF(x, m_lanes.bottom()), QPointF(x, m_lanes.bottom() + m_row / 4));
        const double left =
            std::max(m_lanes.left(), std::min(x - width / 2, m_lanes.right() - width));
        m_painter->drawText(QRectF(left, m_lanes.bottom() + m_row / 4, width, m_row),
                            Qt::AlignHCenter | Qt::TextDontClip, timeOfDay(time / millisecond));
    }
}

void CyclePainter::paintExchange(qint64 place)
{
    const ExchangeTimes& times = m_record.mark(place).times;
    const int station = stationOf(m_record.history().at(place));
    const double end = std::max(m_axis.xOf(times.replyEnded), m_axis.xOf(times.sent) + 1);
    double& painted = m_painted[station];
    if (end < painted + 1)
        return;
    painted = end;
    const QRectF bar = lane(station);
    const auto fill = [&](qint64 from, qint64 to, const QBrush& brush) {
        const double left = std::max(m_axis.xOf(from), m_axis.left() - 1);
        const double right = std::min(m_axis.xOf(to), m_axis.left() + m_axis.width() + 1);
        if (right > left)
            m_painter->fillRect(QRectF(left, bar.top(), std::max(right - left, 1.0), bar.height()),
                                brush);
    };
    fill(times.requestEnded, times.replyBegan, m_colours.waited);
    fill(times.sent, times.requestEnded, m_colours.sent);
    fill(times.replyBegan, times.replyEnded, m_colours.received);
}

void CyclePainter::paintMarks(qint64 place)
{
    const LineRecord::Mark& mark = m_record.mark(place);
    const Exchange& exchange = m_record.history().at(place);
    if (mark.beginsCycle) {
        const double x = m_axis.xOf(mark.times.sent);
        m_painter->setPen(QPen(m_palette.color(QPalette::Text), 1, Qt::DotLine));
        m_painter->drawLine(QPointF(x, m_lanes.top()), QPointF(x, m_lanes.bottom()));
    }
    const ExchangeVerdict verdict = verdictOf(exchange);
    if (verdict == ExchangeVerdict::Accepted && !mark.isLate)
        return;
    const LineMark shape = verdict == ExchangeVerdict::Failed     ? LineMark::Failed
                           : verdict == ExchangeVerdict::Repeated ? LineMark::Repeated
                                                                  : LineMark::Late;
    const QRectF bar = lane(stationOf(exchange));
    const double size = std::min(m_row * 0.7, bar.height());
    const double x = m_axis.xOf((mark.times.sent + mark.times.replyEnded) / 2);
    const QPointF centre(std::max(x, m_axis.left() + size), bar.top());
    drawLineMark(m_painter, m_palette, shape, centre, size);
}

void CyclePainter::paintSelection(qint64 place)
{
    const ExchangeTimes& times = m_record.mark(place).times;
    const QRectF bar = lane(stationOf(m_record.history().at(place)));
    const double left = m_axis.xOf(times.sent);
    const double width = std::max(m_axis.xOf(times.replyEnded) - left, 2.0);
    m_painter->setBrush(Qt::NoBrush);
    m_painter->setPen(QPen(m_palette.color(QPalette::Highlight), std::max(m_row / 8, 2.0)));
    m_painter->drawRect(QRectF(left, bar.top(), width, bar.height()).adjusted(-2, -2, 2, 2));
}

} // namespace kxpanel
