#include "kxsim/timing/arriving_bytes.h"

#include <algorithm>

namespace kxsim
{

void ArrivingBytes::add(const QByteArray& bytes, Moment now)
{
    m_free = std::max(m_free, now) + m_pace.timeOf(bytes.size());
    m_arrivals.push_back({m_free, bytes});
}

ArrivingBytes::Arrival ArrivingBytes::take()
{
    Arrival first = m_arrivals.front();
    m_arrivals.pop_front();
    return first;
}

void ArrivingBytes::clear()
{
    m_arrivals.clear();
    m_free = Moment(0);
}

} // namespace kxsim
