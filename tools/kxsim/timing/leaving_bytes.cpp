#include "kxsim/timing/leaving_bytes.h"

#include <algorithm>

namespace kxsim
{

void LeavingBytes::add(const QByteArray& reply, Moment start)
{
    if (reply.isEmpty())
        return;
    const auto startsLater = [](Moment moment, const Reply& other) { return moment < other.start; };
    m_waiting.insert(std::upper_bound(m_waiting.begin(), m_waiting.end(), start, startsLater),
                     {start, reply});
}

Moment LeavingBytes::due() const
{
    if (!m_current.isEmpty())
        return m_start + m_pace.timeOf(m_taken + 1);
    return std::max(m_waiting.front().start, m_free) + m_pace.timeOf(1);
}

bool LeavingBytes::begin(Moment now)
{
    if (m_waiting.empty() || m_waiting.front().start > now)
        return false;
    m_current = m_waiting.front().bytes;
    m_start = std::max(m_waiting.front().start, m_free);
    m_free = m_start + m_pace.timeOf(m_current.size());
    m_waiting.erase(m_waiting.begin());
    return true;
}

QByteArray LeavingBytes::take(Moment now, QList<QByteArray>* begun)
{
    QByteArray arrived;
    for (;;) {
        if (m_current.isEmpty()) {
            if (!begin(now))
                return arrived;
            *begun << m_current;
        }
        while (m_taken < m_current.size() && m_start + m_pace.timeOf(m_taken + 1) <= now)
            arrived.append(m_current.at(static_cast<int>(m_taken++)));
        if (m_taken < m_current.size())
            return arrived;
        m_current.clear();
        m_taken = 0;
    }
}

void LeavingBytes::clear()
{
    m_waiting.clear();
    m_current.clear();
    m_taken = 0;
    m_free = Moment(0);
}

} // namespace kxsim
