#include "tools/exchange/virtual_clock.h"

namespace kx
{

void VirtualClock::wakeAfter(qint64 microseconds)
{
    m_wakesAt = m_now + qMax(qint64(0), microseconds);
}

void VirtualClock::after(qint64 microseconds, const std::function<void()>& event)
{
    m_events.emplace(m_now + microseconds, event);
}

qint64 VirtualClock::nextAt() const
{
    if (m_events.empty())
        return m_wakesAt;
    const qint64 event = m_events.begin()->first;
    return m_wakesAt == NEVER ? event : qMin(event, m_wakesAt);
}

bool VirtualClock::step()
{
    const qint64 next = nextAt();
    if (next == NEVER)
        return false;
    m_now = next;
    if (m_wakesAt == next) {
        m_wakesAt = NEVER;
        emit woken();
        return true;
    }
    const std::function<void()> event = m_events.begin()->second;
    m_events.erase(m_events.begin());
    event();
    return true;
}

void VirtualClock::pass(qint64 microseconds)
{
    const qint64 end = m_now + microseconds;
    while (nextAt() != NEVER && nextAt() <= end)
        step();
    m_now = end;
}

} // namespace kx
