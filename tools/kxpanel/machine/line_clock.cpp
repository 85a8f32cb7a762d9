#include "kxpanel/machine/line_clock.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const qint64 LEAST_JUMP = 1000; // milliseconds; a clock that is kept right is never so far off

} // namespace

qint64 LineClock::follow(qint64 steady, qint64 timeOfDay)
{
    const qint64 back = m_isSet ? m_offset - (timeOfDay - steady) : 0;
    m_isSet = true;
    m_offset = timeOfDay - steady;
    return back > LEAST_JUMP ? back : 0;
}

void LineClock::onRead(qint64 steady, qint64 readAt)
{
    m_offset = std::max(m_offset, readAt - steady);
}

} // namespace kxpanel
