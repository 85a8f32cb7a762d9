#include "exchange/loop_clock.h"

#include "exchange/precise_timer.h"

namespace kx
{

namespace
{

const qint64 NANOSECONDS_PER_MICROSECOND = 1000;

} // namespace

SystemClock::SystemClock(QObject* parent) : LoopClock(parent), m_timer(new PreciseTimer(this))
{
    connect(m_timer, &PreciseTimer::timeout, this, &LoopClock::woken);
    m_since.start();
}

qint64 SystemClock::now() const
{
    return m_since.nsecsElapsed() / NANOSECONDS_PER_MICROSECOND;
}

void SystemClock::wakeAfter(qint64 microseconds)
{
    m_timer->start(microseconds);
}

void SystemClock::wakeExactlyAfter(qint64 microseconds)
{
    m_timer->startExactly(microseconds);
}

void SystemClock::cancel()
{
    m_timer->stop();
}

} // namespace kx
