#include "panel/sequence/sequence_run.h"

#include "panel/files/whole_range.h"
#include "panel/jobs/write_job.h"
#include "panel/sequence/condition_job.h"
#include "panel/sequence/pause_job.h"
#include "panel/values/value_codec.h"

#include <utility>

namespace kx
{

SequenceRun::SequenceRun(Session* session, const Sequence& sequence, LoopClock* clock)
    : m_session(session), m_sequence(sequence), m_clock(clock)
{
    qRegisterMetaType<StepResult>("kx::StepResult");
    connect(session, &Session::lineFailed, this, &SequenceRun::onLineFailed);
}

void SequenceRun::start()
{
    goOn();
}

bool SequenceRun::interrupt()
{
    if (!isMain())
        return false;
    m_isInterrupted = true;
    if (m_job)
        m_job->abort(QStringLiteral("interrupted"));
    return true;
}

// Not from inside of itself, since many steps may end at once when the line is lost.
void SequenceRun::goOn()
{
    if (std::exchange(m_isGoingOn, true))
        return;
    while (!m_job && m_next < m_sequence.steps.size()) {
        if (isMain() && (m_hasFailed || m_isInterrupted))
            skipMain();
        else
            begin(m_sequence.steps.at(m_next));
    }
    m_isGoingOn = false;
    if (!m_job)
        emit finished();
}

void SequenceRun::skipMain()
{
    m_hasFailed = true;
    StepResult result;
    result.step = m_next++;
    emit stepFinished(result);
}

void SequenceRun::begin(const Step& step)
{
    emit stepStarted(m_next);
    m_startedAt = m_clock->now();
    m_job = jobOf(step);
    m_job->setParent(this);
    connect(m_job, &Job::finished, this, &SequenceRun::onJobFinished);
    m_job->start();
}

Job* SequenceRun::jobOf(const Step& step)
{
    m_reading = nullptr;
    switch (step.kind) {
    case StepKind::Write:
        return writeJobOf(step);
    case StepKind::Pause:
        return new PauseJob(m_session, step.time, m_clock);
    default:
        return conditionJobOf(step);
    }
}

Job* SequenceRun::writeJobOf(const Step& step)
{
    Assignment assignment = {wholeRange(step.tag), step.values};
    assignment.bit = step.tag.format.bit;
    return new WriteJob(m_session, {assignment});
}

Job* SequenceRun::conditionJobOf(const Step& step)
{
    m_reading = new ConditionJob(m_session, step.tag, step.condition, step.time, m_clock);
    connect(m_reading, &ConditionJob::valueRead, this,
            [this, step] { emit valueRead(m_next, shownText(step.tag, m_reading->values())); });
    return m_reading;
}

void SequenceRun::onJobFinished()
{
    const StepResult result = resultOf(m_sequence.steps.at(m_next));
    m_hasFailed = m_hasFailed || result.outcome == StepOutcome::Failed;
    if (m_job->failure().kind == FailureKind::LineLost)
        m_lost = m_job->failure().text;
    m_job->deleteLater();
    m_job = nullptr;
    ++m_next;
    emit stepFinished(result);
    goOn();
}

// Also while a pause, which needs no line, lets time pass.
void SequenceRun::onLineFailed(const Failure& failure)
{
    m_lost = failure.text;
}

StepResult SequenceRun::resultOf(const Step& step) const
{
    StepResult result;
    result.step = m_next;
    result.outcome = StepOutcome::Passed;
    result.microseconds = m_clock->now() - m_startedAt;
    if (m_reading && !m_reading->values().isEmpty()) {
        result.shown = shownText(step.tag, m_reading->values());
        result.value = valueJson(step.tag.format, m_reading->values());
    }
    if (m_reading && m_reading->isMet())
        return result;
    if (m_reading && (m_job->failure().isNone() || m_reading->isTimeOver()))
        result.reason = conditionFault(step, result.shown);
    else if (!m_job->failure().isNone())
        result.reason = failureText(step);
    if (!result.reason.isEmpty())
        result.outcome = StepOutcome::Failed;
    return result;
}

/// "pressure (D100@1) is 4.2 bar, expected > 4.5"
QString SequenceRun::conditionFault(const Step& step, const QString& shown) const
{
    const QString name = operandText(step.tag);
    const QString& expected = step.condition.text;
    if (shown.isEmpty())
        return QStringLiteral("%1 was not read in time, expected %2").arg(name, expected);
    return QStringLiteral("%1 is %2, expected %3").arg(name, shown, expected);
}

/// "pump (Y10@1): no reply"
QString SequenceRun::failureText(const Step& step) const
{
    const bool isLineGone = !m_lost.isEmpty() && m_job->failure().kind == FailureKind::SessionEnded;
    const QString text = isLineGone ? m_lost : m_job->failure().text;
    return step.kind == StepKind::Pause ? text
                                        : QStringLiteral("%1: %2").arg(operandText(step.tag), text);
}

} // namespace kx
