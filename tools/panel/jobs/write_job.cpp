#include "panel/jobs/write_job.h"

#include "addresses/write_pieces.h"
#include "panel/session/request_checks.h"
#include "panel/values/value_codec.h"

#include <algorithm>
#include <utility>

namespace kx
{

namespace
{

bool isBitOfKeptWord(const Assignment& assignment)
{
    return assignmentRefusal(assignment).isNone() && assignment.range.values == 1
           && keepsItsWords(assignment.range.type);
}

} // namespace

WriteJob::WriteJob(Session* session, const QList<Assignment>& assignments, QObject* parent)
    : Job(session, parent),
      m_assignments(assignments),
      m_total(static_cast<int>(assignments.size()))
{
    qRegisterMetaType<WriteOutcome>("kx::WriteOutcome");
    connect(session, &Session::readFinished, this, &WriteJob::onWord);
    connect(session, &Session::writeFinished, this, &WriteJob::onEnd);
}

void WriteJob::writeNextAssignment()
{
    if (m_assignments.isEmpty())
        return end();
    const Assignment& assignment = m_assignments.first();
    if (assignment.bit >= 0 && isBitOfKeptWord(assignment))
        return readWord();
    m_pieces = {assignment}; // which the session refuses as a whole when it is not right
    if (assignmentRefusal(assignment).isNone()) {
        const int most = addressesPerWrite(assignment.range.type, session()->settings().maxWords);
        m_pieces = writePieces(assignment, std::max(1, most));
    }
    writeNextPiece();
}

void WriteJob::readWord()
{
    await([range = m_assignments.first().range](Session* session) { return session->read(range); });
}

/// Whether the request that was awaited did; what follows from a failure is done.
bool WriteJob::hasSucceeded(int handle, const Failure& failure)
{
    if (!takesEnd(handle))
        return false;
    if (isSessionOver(failure))
        endEarly(failure);
    else if (!failure.isNone())
        settle(failure);
    else
        return true;
    return false;
}

void WriteJob::onWord(int handle, const ReadEnd& end)
{
    if (!hasSucceeded(handle, end.failure))
        return;
    Assignment whole = m_assignments.first();
    m_word = withBit(end.values.first(), whole.bit, whole.values.first() != 0);
    whole.values = {m_word};
    whole.bit = -1;
    m_pieces = {whole};
    writeNextPiece();
}

void WriteJob::writeNextPiece()
{
    await([piece = m_pieces.first()](Session* session) { return session->write(piece); });
}

void WriteJob::onEnd(int handle, const WriteEnd& end)
{
    if (!hasSucceeded(handle, end.failure))
        return;
    m_confirmed += m_pieces.takeFirst().range.values;
    if (m_pieces.isEmpty())
        settle(Failure());
    else
        writeNextPiece();
}

void WriteJob::tell(const Failure& failure)
{
    noteFailure(failure);
    emit assignmentFinished({m_assignments.takeFirst(), failure, std::exchange(m_confirmed, 0),
                             std::exchange(m_word, -1)});
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
