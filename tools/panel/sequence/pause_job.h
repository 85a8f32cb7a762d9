#ifndef KX_PANEL_SEQUENCE_PAUSE_JOB_H
#define KX_PANEL_SEQUENCE_PAUSE_JOB_H

#include "panel/jobs/job.h"

namespace kx
{

/// Lets time pass.
class PauseJob : public Job
{
    Q_OBJECT

public:
    /// @param time  microseconds
    /// @param clock the job has it for its own until it ends; it must outlive the job
    PauseJob(Session* session, qint64 time, LoopClock* clock);

private:
    void begin() override { m_clock->wakeAfter(m_time); }
    void giveUp(const Failure&) override { m_clock->cancel(); }
    void onWoken();

    qint64 m_time;
    LoopClock* m_clock;
};

} // namespace kx

#endif
