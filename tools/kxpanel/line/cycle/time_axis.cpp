#include "kxpanel/line/cycle/time_axis.h"

#include <algorithm>
#include <cmath>

namespace kxpanel
{

void TimeAxis::setPixels(double left, double width)
{
    m_left = left;
    m_width = std::max(width, 1.0);
}

double TimeAxis::xOf(qint64 time) const
{
    return m_left + static_cast<double>(time - m_from) * m_width / static_cast<double>(m_span);
}

qint64 TimeAxis::timeAt(double x) const
{
    return m_from + std::llround((x - m_left) * static_cast<double>(m_span) / m_width);
}

void TimeAxis::setSpan(qint64 span)
{
    const qint64 end = to();
    m_span = std::clamp(span, qint64(SHORTEST), qint64(LONGEST));
    setEnd(end);
}

void TimeAxis::zoom(double factor, double x)
{
    const qint64 fixed = timeAt(x);
    setSpan(std::llround(static_cast<double>(m_span) * factor));
    m_from += fixed - timeAt(x);
}

void TimeAxis::pan(double pixels)
{
    m_from = timeAt(m_left + pixels);
}

QVector<qint64> TimeAxis::ticks(double apart) const
{
    const double least = apart * static_cast<double>(m_span) / m_width;
    qint64 decade = 1;
    while (static_cast<double>(5 * decade) < least)
        decade *= 10;
    qint64 step = decade;
    for (const int factor : {1, 2, 5}) {
        step = factor * decade;
        if (static_cast<double>(step) >= least)
            break;
    }
    QVector<qint64> times;
    for (qint64 time = (m_from + step - 1) / step * step; time <= to(); time += step)
        times << time;
    return times;
}

} // namespace kxpanel
