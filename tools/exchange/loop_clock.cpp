#include "exchange/loop_clock.h"

namespace kx
{

namespace
{

const qint64 NANOSECONDS_PER_MICROSECOND = 1000;

} // namespace

SystemClock::SystemClock(QObject* parent) : LoopClock(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &LoopClock::woken);
    m_since.start();
}

qint64 SystemClock::now() const
{
    return m_since.nsecsElapsed() / NANOSECONDS_PER_MICROSECOND;
}

void SystemClock::wakeAfter(qint64 microseconds)
{
    const qint64 milliseconds =
        (microseconds + MICROSECONDS_PER_MILLISECOND - 1) / MICROSECONDS_PER_MILLISECOND;
    m_timer.start(static_cast<int>(qMax(qint64(0), milliseconds)));
}

} // namespace kx
