#include "kxpanel/line/cycle/measured_cycle.h"

#include "exchange/loop_clock.h"

namespace kxpanel
{

namespace
{

const size_t CYCLES = 3;
const qint64 TIME = 2000; // milliseconds

} // namespace

void MeasuredCycle::add(const Exchange& exchange)
{
    if (!m_marks.begins(exchange))
        return;
    if (!m_begins.empty() && exchange.sentAt < m_begins.back())
        m_begins.clear(); // the clock was put back
    m_begins.push_back(exchange.sentAt);
    while (m_begins.size() > CYCLES + 1 && m_begins.back() - m_begins[1] >= TIME)
        m_begins.pop_front();
}

void MeasuredCycle::forget()
{
    m_begins.clear();
    m_marks.forget();
}

qint64 MeasuredCycle::average() const
{
    const auto cycles = static_cast<qint64>(m_begins.size()) - 1;
    return cycles < 1
               ? 0
               : (m_begins.back() - m_begins.front()) * kx::MICROSECONDS_PER_MILLISECOND / cycles;
}

} // namespace kxpanel
