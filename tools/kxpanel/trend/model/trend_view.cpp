#include "kxpanel/trend/model/trend_view.h"

#include <QtCore/QtMath>

namespace kxpanel
{

namespace
{

const double LEAST_VALUE = 1e-280;
const double FINEST = 1e-12; // part of a number by which two can be told apart on a scale

double finestAt(double low, double high)
{
    return qMax(qAbs(low), qAbs(high)) * FINEST;
}

} // namespace

TrendView::Range drawnRange(double low, double high)
{
    low = qBound(-TrendView::MOST_VALUE, low, TrendView::MOST_VALUE);
    high = qBound(-TrendView::MOST_VALUE, high, TrendView::MOST_VALUE);
    const double largest = qMax(qAbs(low), qAbs(high));
    if (largest < LEAST_VALUE)
        return {-0.5, 0.5};
    double air = 0;
    if (!(low < high))
        air = largest / 2;
    else if (high - low < finestAt(low, high))
        air = finestAt(low, high);
    return {low - air, high + air};
}

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

void TrendView::shift(qint64 milliseconds)
{
    m_now += milliseconds;
    m_to += milliseconds;
    for (std::optional<qint64>& cursor : m_cursors) {
        if (cursor)
            *cursor += milliseconds;
    }
    emit changed();
    emit cursorsChanged();
}

void TrendView::reset()
{
    m_values = {};
    m_span = USUAL_SPAN;
    goLive();
    clearCursors();
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
    if (values
        && (!(values->low < values->high) || values->low < -MOST_VALUE || values->high > MOST_VALUE
            || values->high - values->low < finestAt(values->low, values->high)))
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
