#include "panel/jobs/job.h"

#include "system/translated_text.h"

#include <utility>

namespace kx
{

namespace
{

QString notWanted()
{
    return Text::tr("not wanted any more");
}

} // namespace

Job::Job(Session* session, QObject* parent) : QObject(parent), m_session(session) {}

Job::~Job()
{
    if (!m_session)
        return;
    disconnect(m_session, nullptr, this, nullptr);
    m_session->cancel(m_awaited, notWanted());
}

void Job::start()
{
    if (m_state != State::Waiting)
        return;
    m_state = State::Running;
    if (m_session && m_session->isRunning())
        begin();
    else
        endEarly(failureOf(FailureKind::SessionEnded, Text::tr("the session does not run")));
}

void Job::abort(const QString& reason)
{
    if (m_state == State::Ended)
        return;
    // The end of the request may tell more than that it was called off.
    if (m_session)
        m_session->cancel(m_awaited, reason);
    endEarly(failureOf(FailureKind::Aborted, reason));
}

void Job::await(const std::function<int(Session*)>& request)
{
    const QPointer<Job> self(this);
    Session* const session = m_session;
    const int handle = request(session);
    if (self && isRunning())
        m_awaited = handle;
    else
        session->cancel(handle, notWanted());
}

bool Job::takesEnd(int handle)
{
    const bool isMine = isAwaited(handle);
    if (isMine)
        m_awaited = 0;
    return isMine;
}

bool Job::isSessionOver(const Failure& failure) const
{
    return failure.kind == FailureKind::Aborted || failure.kind == FailureKind::DriverInitialised
           || (!failure.isNone() && (!m_session || !m_session->isRunning()));
}

void Job::noteFailure(const Failure& failure)
{
    if (m_failure.isNone())
        m_failure = failure;
}

void Job::end()
{
    if (std::exchange(m_state, State::Ended) != State::Ended)
        emit finished();
}

void Job::endEarly(const Failure& reason)
{
    if (m_state == State::Ended)
        return;
    m_state = State::Ended; // a slot may abort a job that is ending
    m_awaited = 0;
    noteFailure(reason);
    giveUp(reason);
    emit finished();
}

} // namespace kx
