#ifndef KX_PANEL_SEQUENCE_SEQUENCE_RUN_H
#define KX_PANEL_SEQUENCE_SEQUENCE_RUN_H

#include "panel/jobs/job.h"
#include "panel/sequence/sequence.h"
#include "panel/sequence/step_result.h"

namespace kx
{

class ConditionJob;

/// Does the steps of a sequence, one after the other.
///
///     Main --done, a step failed, interrupt()--> Finally --done--> Ended
///
/// The main steps end with the first that fails; the others are skipped. Those of Finally are all
/// done, whatever became of the others, and interrupt() does not end them. Nothing is put back:
/// apart from what Finally writes, the machine stays as the last step left it.
///
/// Call it on the session's thread; the session runs, and outlives the run.
class SequenceRun : public QObject
{
    Q_OBJECT

public:
    /// @param clock for the steps' times, and nobody else's; must outlive the run
    SequenceRun(Session* session, const Sequence& sequence, LoopClock* clock);

    /// Once. finished() may come before it returns.
    void start();
    /// Ends the main step at work as failed, and goes on with Finally.
    /// @return false when the main steps are over
    bool interrupt();

    bool hasFailed() const { return m_hasFailed; }

signals:
    void stepStarted(int step);
    /// While a step waits.
    void valueRead(int step, const QString& shown);
    /// For each step once, in their order.
    void stepFinished(const kx::StepResult& result);
    /// The last signal, once.
    void finished();

private:
    bool isMain() const { return m_next < m_sequence.mainSteps; }
    void goOn();
    void skipMain();
    void begin(const Step& step);
    Job* jobOf(const Step& step);
    Job* writeJobOf(const Step& step);
    Job* conditionJobOf(const Step& step);
    void onJobFinished();
    void onLineFailed(const Failure& failure);
    StepResult resultOf(const Step& step) const;
    QString conditionFault(const Step& step, const QString& shown) const;
    QString failureText(const Step& step) const;

    Session* m_session;
    Sequence m_sequence;
    LoopClock* m_clock;
    Job* m_job = nullptr;              ///< of the step at work, a child
    ConditionJob* m_reading = nullptr; ///< the same, of one that reads
    int m_next = 0;                    ///< step at work, or the next one
    qint64 m_startedAt = 0;
    QString m_lost; ///< why the line is
    bool m_isGoingOn = false;
    bool m_hasFailed = false;
    bool m_isInterrupted = false;
};

} // namespace kx

#endif
