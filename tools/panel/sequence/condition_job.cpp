#include "panel/sequence/condition_job.h"

namespace kx
{

ConditionJob::ConditionJob(Session* session, const Tag& tag, const Condition& condition,
                           qint64 time, LoopClock* clock)
    : Job(session), m_tag(tag), m_condition(condition), m_time(time), m_clock(clock)
{
    connect(session, &Session::readFinished, this, &ConditionJob::onEnd);
    connect(clock, &LoopClock::woken, this, &ConditionJob::onTimeOut);
}

void ConditionJob::begin()
{
    m_startedAt = m_clock->now();
    if (m_time > 0)
        m_clock->wakeAfter(m_time);
    ask();
}

void ConditionJob::ask()
{
    await([this](Session* session) { return session->read(m_tag.range); });
}

void ConditionJob::onEnd(int handle, const ReadEnd& readEnd)
{
    if (!takesEnd(handle))
        return;
    if (!readEnd.failure.isNone())
        return endEarly(readEnd.failure);
    // The answer may be taken from the event loop before the time-out is.
    if (isLate())
        return onTimeOut();
    m_values = readEnd.values;
    m_isMet = kx::isMet(m_condition, comparedText(m_tag, m_values));
    emit valueRead();
    if (!isRunning())
        return;
    if (!m_isMet && m_time > 0)
        return ask();
    m_clock->cancel();
    end();
}

void ConditionJob::onTimeOut()
{
    if (!isRunning())
        return;
    m_isTimeOver = true;
    abort(QStringLiteral("the time is over"));
}

} // namespace kx
