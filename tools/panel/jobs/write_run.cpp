#include "panel/jobs/write_run.h"

#include "addresses/write_pieces.h"
#include "panel/text/frame_text.h"

namespace kx
{

WriteRun::WriteRun(DriverSession* session, const QList<Assignment>& assignments)
    : m_session(session), m_assignments(assignments)
{
    connect(session, &DriverSession::exchanged, this, &WriteRun::takeExchange);
    connect(session, &DriverSession::lineFailed, this, &WriteRun::abort);
}

void WriteRun::start()
{
    m_session->start();
    queueAssignment();
}

void WriteRun::queueAssignment()
{
    const Assignment& assignment = m_assignments.first();
    const int most = addressesPerWrite(assignment.range.type, m_session->settings().maxWords);
    m_confirmed = 0;
    m_pieces = writePieces(assignment, most);
    m_session->write(m_pieces.first());
}

void WriteRun::takeExchange(const ExchangeRecord& record)
{
    if (m_assignments.isEmpty() || record.result == REPLY_RETRY)
        return;
    if (record.result != REPLY_ACCEPTED) {
        settle(reasonOf(record));
        return;
    }
    m_confirmed += m_pieces.takeFirst().range.values;
    if (m_pieces.isEmpty())
        settle(QString());
    else
        m_session->write(m_pieces.first());
}

void WriteRun::tell(const QString& failure)
{
    m_hasFailed = m_hasFailed || !failure.isEmpty();
    emit assignmentFinished({m_assignments.takeFirst(), failure, m_confirmed});
    m_confirmed = 0;
}

void WriteRun::settle(const QString& failure)
{
    tell(failure);
    if (!m_assignments.isEmpty()) {
        queueAssignment();
        return;
    }
    m_session->stop();
    emit finished();
}

void WriteRun::abort(const QString& reason)
{
    m_session->stop();
    while (!m_assignments.isEmpty())
        tell(reason);
    emit finished();
}

} // namespace kx
