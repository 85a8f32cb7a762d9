#include "kxpanel/machine/session_times.h"

#include <QtCore/QDateTime>

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace kxpanel
{

namespace
{

const qint64 LEAST_STEP = 50;  // milliseconds; clocks are looked at one after the other
const qint64 LONGEST_LOOK = 5; // milliseconds; else something else ran between clock and clock
const int MOST_LOOKS = 10;

bool isStep(qint64 milliseconds)
{
    return std::abs(milliseconds) >= LEAST_STEP;
}

} // namespace

SystemTimes systemTimes()
{
    const qint64 millisecondsPerSecond = 1000;
    const qint64 nanosecondsPerMillisecond = 1000000;
    timespec steady = {};
    clock_gettime(CLOCK_BOOTTIME, &steady);
    return {steady.tv_sec * millisecondsPerSecond + steady.tv_nsec / nanosecondsPerMillisecond,
            QDateTime::currentMSecsSinceEpoch()};
}

ClockLook lookAtOnce(const std::function<qint64()>& session, const Clocks& system)
{
    ClockLook look = {};
    for (int attempt = 0; attempt < MOST_LOOKS; ++attempt) {
        const qint64 before = session();
        look.system = system();
        look.session = session();
        if (look.session - before <= LONGEST_LOOK)
            break;
    }
    return look;
}

qint64 SessionTimes::look(qint64 session, const SystemTimes& now)
{
    const bool isFirst = m_stretches.isEmpty();
    const qint64 steadyOffset = now.steady - session;
    if (isFirst || isStep(steadyOffset - m_stretches.last().offset))
        m_stretches.append({session, steadyOffset});
    const qint64 offset = now.timeOfDay - now.steady;
    const qint64 step = isFirst ? 0 : offset - m_offset;
    if (!isFirst && !isStep(step))
        return 0;
    m_offset = offset;
    return step;
}

qint64 SessionTimes::timeOfDay(qint64 session) const
{
    auto stretch =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), session,
                         [](qint64 time, const Stretch& one) { return time < one.from; });
    if (stretch != m_stretches.begin())
        --stretch;
    return m_offset + session + (stretch == m_stretches.end() ? 0 : stretch->offset);
}

} // namespace kxpanel
