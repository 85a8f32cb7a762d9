#include "kxsim/line/timed_line.h"

#include <algorithm>

namespace kxsim
{

TimedLine::TimedLine(SlaveLine* line, const LineTiming& timing)
    : m_line(line),
      m_turnaround(timing.turnaround, timing.seed),
      m_arriving(timing.pace),
      m_leaving(timing.pace)
{
}

Moment TimedLine::now() const
{
    return Clock::now() - m_start;
}

void TimedLine::setAlarm()
{
    if (m_arriving.isEmpty() && m_leaving.isEmpty()) {
        m_timer.stop();
        return;
    }
    Moment due = Moment::max();
    if (!m_arriving.isEmpty())
        due = m_arriving.due();
    if (!m_leaving.isEmpty())
        due = std::min(due, m_leaving.due());
    m_timer.set(m_start + due);
}

bool TimedLine::receive()
{
    QByteArray received;
    if (!m_line->receive(&received))
        return false;
    if (!received.isEmpty())
        m_arriving.add(received, now());
    return true;
}

bool TimedLine::takeArrived(ArrivingBytes::Arrival* arrival)
{
    if (m_arriving.isEmpty() || m_arriving.due() > now())
        return false;
    *arrival = m_arriving.take();
    return true;
}

void TimedLine::reply(const QByteArray& bytes, Moment requestEnd, Moment delay)
{
    m_leaving.add(bytes, requestEnd + m_turnaround.next() + delay);
}

QList<QByteArray> TimedLine::sendDue()
{
    QList<QByteArray> begun;
    const QByteArray bytes = m_leaving.take(now(), &begun);
    if (!bytes.isEmpty())
        m_line->send(bytes);
    return begun;
}

bool TimedLine::reopen()
{
    m_arriving.clear();
    m_leaving.clear();
    return m_line->reopen();
}

} // namespace kxsim
