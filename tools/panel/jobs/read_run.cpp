#include "panel/jobs/read_run.h"

#include "addresses/read_pieces.h"
#include "panel/text/frame_text.h"

namespace kx
{

namespace
{

const int READ_DONE = 0; // of DriverSession::conditionReadFinished()

} // namespace

ReadRun::ReadRun(DriverSession* session, const QList<Tag>& tags) : m_session(session), m_tags(tags)
{
    connect(session, &DriverSession::conditionReadFinished, this, &ReadRun::takeEnd);
    connect(session, &DriverSession::exchanged, this, &ReadRun::takeExchange);
    connect(session, &DriverSession::lineFailed, this, &ReadRun::abort);
}

void ReadRun::start()
{
    m_session->start();
    queueRange();
}

void ReadRun::queueRange()
{
    const AddressRange& range = m_tags.first().range;
    m_pieces = readPieces(range, addressesPerRead(range.type, m_session->settings().maxWords));
    m_session->conditionRead(m_pieces.first());
}

// Comes before the end of the read that it belongs to, and knows the reason.
void ReadRun::takeExchange(const ExchangeRecord& record)
{
    m_lastReason = reasonOf(record);
}

void ReadRun::takeEnd(int result)
{
    if (m_tags.isEmpty())
        return;
    if (result != READ_DONE) {
        settle(m_lastReason);
        return;
    }
    m_pieces.removeFirst();
    if (m_pieces.isEmpty())
        settle(QString());
    else
        m_session->conditionRead(m_pieces.first());
}

void ReadRun::settle(const QString& failure)
{
    ReadOutcome outcome = {m_tags.takeFirst(), failure, QList<qint64>()};
    if (failure.isEmpty())
        outcome.values = m_session->values(outcome.tag.range);
    else
        m_hasFailed = true;
    emit rangeFinished(outcome);
    if (!m_tags.isEmpty()) {
        queueRange();
        return;
    }
    m_session->stop();
    emit finished();
}

void ReadRun::abort(const QString& reason)
{
    m_session->stop();
    m_hasFailed = m_hasFailed || !m_tags.isEmpty();
    while (!m_tags.isEmpty())
        emit rangeFinished({m_tags.takeFirst(), reason, QList<qint64>()});
    emit finished();
}

} // namespace kx
