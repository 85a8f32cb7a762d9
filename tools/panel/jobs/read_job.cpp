#include "panel/jobs/read_job.h"

#include "addresses/read_pieces.h"
#include "panel/session/request_checks.h"

#include <algorithm>
#include <utility>

namespace kx
{

ReadJob::ReadJob(Session* session, const QList<Tag>& tags, QObject* parent)
    : Job(session, parent), m_tags(tags), m_total(static_cast<int>(tags.size()))
{
    qRegisterMetaType<ReadOutcome>("kx::ReadOutcome");
    connect(session, &Session::readFinished, this, &ReadJob::onEnd);
}

void ReadJob::readNextRange()
{
    if (m_tags.isEmpty())
        return end();
    const AddressRange& range = m_tags.first().range;
    m_pieces = {range}; // which the session refuses when it does not exist
    if (rangeRefusal(range).isNone()) {
        const int most = addressesPerRead(range.type, session()->settings().maxWords);
        m_pieces = readPieces(range, std::max(1, most));
    }
    readNextPiece();
}

void ReadJob::readNextPiece()
{
    await([piece = m_pieces.first()](Session* session) { return session->read(piece); });
}

void ReadJob::onEnd(int handle, const ReadEnd& end)
{
    if (!takesEnd(handle))
        return;
    if (isSessionOver(end.failure))
        return endEarly(end.failure);
    if (!end.failure.isNone())
        return settle(end.failure);
    m_values += end.values;
    m_pieces.removeFirst();
    if (m_pieces.isEmpty())
        settle(Failure());
    else
        readNextPiece();
}

void ReadJob::settle(const Failure& failure)
{
    const QList<qint64> values = std::exchange(m_values, {});
    const ReadOutcome outcome = {m_tags.takeFirst(), failure,
                                 failure.isNone() ? values : QList<qint64>()};
    noteFailure(failure);
    emit rangeFinished(outcome);
    if (isRunning())
        emit progress(m_total - static_cast<int>(m_tags.size()), m_total);
    if (isRunning())
        readNextRange();
}

void ReadJob::giveUp(const Failure& reason)
{
    while (!m_tags.isEmpty())
        emit rangeFinished({m_tags.takeFirst(), reason, QList<qint64>()});
}

} // namespace kx
