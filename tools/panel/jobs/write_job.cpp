#include "panel/jobs/write_job.h"

#include "addresses/write_pieces.h"
#include "panel/session/request_checks.h"

#include <algorithm>
#include <utility>

namespace kx
{

WriteJob::WriteJob(Session* session, const QList<Assignment>& assignments, QObject* parent)
    : Job(session, parent),
      m_assignments(assignments),
      m_total(static_cast<int>(assignments.size()))
{
    qRegisterMetaType<WriteOutcome>("kx::WriteOutcome");
    connect(session, &Session::writeFinished, this, &WriteJob::onEnd);
}

void WriteJob::writeNextAssignment()
{
    if (m_assignments.isEmpty())
        return end();
    const Assignment& assignment = m_assignments.first();
    m_pieces = {assignment}; // which the session refuses as a whole when it is not right
    if (assignmentRefusal(assignment).isNone()) {
        const int most = addressesPerWrite(assignment.range.type, session()->settings().maxWords);
        m_pieces = writePieces(assignment, std::max(1, most));
    }
    writeNextPiece();
}

void WriteJob::writeNextPiece()
{
    await([piece = m_pieces.first()](Session* session) { return session->write(piece); });
}

void WriteJob::onEnd(int handle, const WriteEnd& end)
{
    if (!takesEnd(handle))
        return;
    if (isSessionOver(end.failure))
        return endEarly(end.failure);
    if (!end.failure.isNone())
        return settle(end.failure);
    m_confirmed += m_pieces.takeFirst().range.values;
    if (m_pieces.isEmpty())
        settle(Failure());
    else
        writeNextPiece();
}

void WriteJob::tell(const Failure& failure)
{
    noteFailure(failure);
    emit assignmentFinished({m_assignments.takeFirst(), failure, std::exchange(m_confirmed, 0)});
}

void WriteJob::settle(const Failure& failure)
{
    tell(failure);
    if (isRunning())
        emit progress(m_total - static_cast<int>(m_assignments.size()), m_total);
    if (isRunning())
        writeNextAssignment();
}

void WriteJob::giveUp(const Failure& reason)
{
    while (!m_assignments.isEmpty())
        tell(reason);
}

} // namespace kx
