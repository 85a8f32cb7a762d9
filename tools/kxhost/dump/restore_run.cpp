#include "kxhost/dump/restore_run.h"

#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace kx
{

namespace
{

/// Requests are as short as those of kxhost write, unless the user names a length.
int longestWrite(const SessionSettings& settings)
{
    return settings.choosesLengths ? SessionSettings().maxWords : settings.maxWords;
}

/// Whether the station has not said what became of a write, and is not to be asked for more.
bool isSilence(const Failure& failure)
{
    return failure.kind != FailureKind::Exception || isGatewayException(failure.exceptionCode);
}

} // namespace

RestoreRun::RestoreRun(Session* session, const KeptOptions& options, const QList<Assignment>& kept)
    : m_session(session),
      m_view(options.path, options.connection.json),
      m_kept(kept),
      m_maxWords(longestWrite(options.connection.session)),
      m_isAgreed(options.isAgreed)
{
    connect(&m_question, &Question::answered, this, &RestoreRun::onAnswer);
    connect(session, &Session::lineFailed, this, &RestoreRun::onLineLost);
}

RestoreRun::~RestoreRun() = default;

int RestoreRun::run()
{
    const Interrupt interrupt;
    connect(&interrupt, &Interrupt::interrupted, this, &RestoreRun::onInterrupt);
    m_session->start();
    read(State::Reading, &m_before, &RestoreRun::onRead);
    QCoreApplication::exec();
    m_session->stop();
    return m_exitCode;
}

// Each job begins in the event loop, so that none is deleted inside its own signals.
void RestoreRun::startJob(Job* job, void (RestoreRun::*next)())
{
    m_job.reset(job);
    connect(job, &Job::finished, this, next, Qt::QueuedConnection);
    job->start();
}

void RestoreRun::read(State state, WholeRead* whole, void (RestoreRun::*next)())
{
    m_state = state;
    auto* const job = new ReadJob(m_session, piecesToRead(rangesOf(m_kept)));
    whole->listenTo(job);
    startJob(job, next);
}

void RestoreRun::onRead()
{
    if (!m_stopReason.isEmpty())
        return stop(m_stopReason);
    if (!m_before.unread().isEmpty())
        return stop(QStringLiteral("not all values could be read"));
    m_differences = differencesOf(m_kept, m_before.values());
    m_writes = joinedWrites(m_differences, m_maxWords);
    m_view.showDifferences(m_differences, valuesOf(m_kept));
    if (m_differences.isEmpty())
        return conclude(resultSoFar());
    m_state = State::Asking;
    if (m_isAgreed)
        return writeNext();
    m_question.ask(RestoreView::questionOf(m_writes));
}

void RestoreRun::onAnswer(bool isYes)
{
    if (isYes)
        writeNext();
    else
        stop(QStringLiteral("not agreed"));
}

void RestoreRun::writeNext()
{
    m_state = State::Writing;
    if (!m_stopReason.isEmpty())
        return stop(m_stopReason);
    if (m_writes.isEmpty())
        return read(State::Verifying, &m_after, &RestoreRun::onVerified);
    auto* const job = new WriteJob(m_session, {m_writes.takeFirst()});
    connect(job, &WriteJob::assignmentFinished, this, &RestoreRun::onWritten);
    startJob(job, &RestoreRun::writeNext);
}

void RestoreRun::onWritten(const WriteOutcome& outcome)
{
    const AddressRange& range = outcome.assignment.range;
    m_view.showWrite(outcome);
    if (outcome.failure.isNone())
        return m_written.take(range, outcome.assignment.values);
    if (!isSilence(outcome.failure))
        return;
    m_perhaps << rangeText(range);
    leaveAlone(range.station);
}

void RestoreRun::leaveAlone(int station)
{
    m_writes.erase(
        std::remove_if(m_writes.begin(), m_writes.end(),
                       [=](const Assignment& write) { return write.range.station == station; }),
        m_writes.end());
}

void RestoreRun::onVerified()
{
    if (!m_stopReason.isEmpty())
        return stop(m_stopReason);
    const QList<Difference> left = differencesOf(m_kept, m_after.values());
    for (const Difference& difference : left)
        m_view.showLeft(difference, causeOf(difference));
    RestoreResult result = resultSoFar();
    result.left = static_cast<int>(left.size());
    result.unread = m_after.unread();
    conclude(result);
}

QString RestoreRun::causeOf(const Difference& difference) const
{
    if (m_written.at(difference.address))
        return QStringLiteral("written, but not kept by the controller");
    return m_before.values().at(difference.address) == difference.kept
               ? QStringLiteral("changed by the controller meanwhile")
               : QStringLiteral("not written");
}

void RestoreRun::onInterrupt()
{
    onStop(QStringLiteral("interrupted"));
}

void RestoreRun::onLineLost(const Failure& failure)
{
    onStop(failure.text);
}

void RestoreRun::onStop(const QString& reason)
{
    m_stopReason = reason;
    if (m_state != State::Asking)
        return m_job->abort(reason);
    m_question.cancel();
    stop(reason);
}

void RestoreRun::stop(const QString& reason)
{
    RestoreResult result = resultSoFar();
    result.stopReason = reason;
    if (m_state == State::Reading && m_stopReason.isEmpty())
        result.unread = m_before.unread();
    conclude(result);
}

RestoreResult RestoreRun::resultSoFar() const
{
    RestoreResult result;
    result.values = valuesOf(m_kept);
    result.different = static_cast<int>(m_differences.size());
    result.written = m_written.size();
    result.perhaps = m_perhaps;
    return result;
}

void RestoreRun::conclude(const RestoreResult& result)
{
    m_state = State::Ended;
    m_exitCode = m_view.conclude(result);
    QCoreApplication::quit();
}

} // namespace kx
