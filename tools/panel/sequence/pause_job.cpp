#include "panel/sequence/pause_job.h"

namespace kx
{

PauseJob::PauseJob(Session* session, qint64 time, LoopClock* clock)
    : Job(session), m_time(time), m_clock(clock)
{
    connect(clock, &LoopClock::woken, this, &PauseJob::onWoken);
}

void PauseJob::onWoken()
{
    if (isRunning())
        end();
}

} // namespace kx
