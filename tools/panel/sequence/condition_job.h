#ifndef KX_PANEL_SEQUENCE_CONDITION_JOB_H
#define KX_PANEL_SEQUENCE_CONDITION_JOB_H

#include "panel/jobs/job.h"
#include "panel/sequence/condition.h"

namespace kx
{

/// Reads a value until it is as expected, with one request after the other: each is asked for when
/// the one before was answered, and brings all registers of the value. So the line sets the pace,
/// and nothing counts that was read before the job began. A read that fails ends the job.
class ConditionJob : public Job
{
    Q_OBJECT

public:
    /// @param tag   fits a request, and names its station
    /// @param time  microseconds in which the value must be read; 0: it is read once, whatever that
    ///              takes
    /// @param clock the job has it for its own until it ends; it must outlive the job
    ConditionJob(Session* session, const Tag& tag, const Condition& condition, qint64 time,
                 LoopClock* clock);

    /// Known at the end.
    bool isMet() const { return m_isMet; }
    /// Whether it was not met within its time.
    bool isTimeOver() const { return m_isTimeOver; }
    /// Of the latest read; none when none was answered in time.
    const QList<qint64>& values() const { return m_values; }

signals:
    void valueRead();

private:
    void begin() override;
    void giveUp(const Failure&) override { m_clock->cancel(); }
    void ask();
    void onEnd(int handle, const ReadEnd& end);
    void onTimeOut();
    bool isLate() const { return m_time > 0 && m_clock->now() - m_startedAt > m_time; }

    Tag m_tag;
    Condition m_condition;
    qint64 m_time;
    LoopClock* m_clock;
    qint64 m_startedAt = 0;
    QList<qint64> m_values;
    bool m_isMet = false;
    bool m_isTimeOver = false;
};

} // namespace kx

#endif
