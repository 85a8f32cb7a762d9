#include "kxpanel/trend/model/trend_view.h"

#include <QtCore/QtMath>

namespace kxpanel
{

void TrendView::setLive(bool isLive)
{
    if (m_isLive == isLive)
        return;
    m_isLive = isLive;
    emit liveChanged(isLive);
}

void TrendView::setNow(qint64 now)
{
    m_now = now;
    if (!m_isLive || m_to == now)
        return;
    m_to = now;
    emit changed();
}

void TrendView::pause()
{
    setLive(false);
}

void TrendView::goLive()
{
    m_to = m_now;
    setLive(true);
    emit changed();
}

void TrendView::setSpan(qint64 span)
{
    m_span = qBound(SHORTEST_SPAN, span, LONGEST_SPAN);
    emit changed();
}

void TrendView::zoom(double factor, qint64 anchor)
{
    const qint64 before = m_span;
    m_span = qBound(SHORTEST_SPAN, qRound64(static_cast<double>(m_span) * factor), LONGEST_SPAN);
    if (!m_isLive) {
        const double right = static_cast<double>(m_to - anchor) / static_cast<double>(before);
        m_to = anchor + qRound64(right * static_cast<double>(m_span));
    }
    emit changed();
}

void TrendView::pan(double share)
{
    moveBy(qRound64(share * static_cast<double>(m_span)));
}

void TrendView::moveBy(qint64 milliseconds)
{
    setLive(false);
    m_to += milliseconds;
    emit changed();
}

void TrendView::show(qint64 from, qint64 to)
{
    setLive(false);
    m_span = qBound(SHORTEST_SPAN, to - from, LONGEST_SPAN);
    m_to = qMax(to, from + m_span);
    emit changed();
}

void TrendView::showValues(TrendSide side, std::optional<Range> values)
{
    if (values && !(values->low < values->high))
        return;
    m_values.at(index(side)) = values;
    emit changed();
}

void TrendView::setCursor(int cursor, qint64 time)
{
    m_cursors.at(place(cursor)) = time;
    m_lastCursor = cursor;
    emit cursorsChanged();
}

void TrendView::moveCursor(qint64 milliseconds)
{
    const std::optional<qint64> time = cursor(m_lastCursor);
    if (time)
        setCursor(m_lastCursor, qBound(from(), *time + milliseconds, to()));
}

void TrendView::clearCursors()
{
    m_cursors = {};
    emit cursorsChanged();
}

std::optional<qint64> TrendView::difference() const
{
    if (!m_cursors.at(0) || !m_cursors.at(1))
        return std::nullopt;
    return *m_cursors.at(1) - *m_cursors.at(0);
}

} // namespace kxpanel
