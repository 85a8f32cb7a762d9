#include "kxhost/commands/read_run.h"

#include "kxhost/commands/read_loop.h"
#include "kxhost/commands/read_pieces.h"

ReadRun::ReadRun(DriverSession* session, const QList<AddressRange>& ranges)
    : m_session(session), m_ranges(ranges)
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
    const AddressRange& range = m_ranges.first();
    m_pieces = readPieces(range, addressesPerRead(range.type, m_session->settings().maxWords));
    queuePiece();
}

void ReadRun::queuePiece()
{
    m_pieceEnded = false;
    m_session->conditionRead(m_pieces.first());
}

// The exchange that ended the read follows at once and knows the reason.
void ReadRun::takeEnd(int result)
{
    Q_UNUSED(result);
    m_pieceEnded = true;
}

void ReadRun::takeExchange(const ExchangeRecord& record)
{
    if (!m_pieceEnded || m_ranges.isEmpty())
        return;
    if (record.result != REPLY_ACCEPTED) {
        settle(reasonOf(record));
        return;
    }
    m_pieces.removeFirst();
    if (m_pieces.isEmpty())
        settle(QString());
    else
        queuePiece();
}

void ReadRun::settle(const QString& failure)
{
    ReadOutcome outcome = {m_ranges.takeFirst(), failure, QList<qint64>()};
    if (failure.isEmpty())
        outcome.values = m_session->values(outcome.range);
    else
        m_hasFailed = true;
    emit rangeFinished(outcome);
    if (!m_ranges.isEmpty()) {
        queueRange();
        return;
    }
    m_session->stop();
    emit finished();
}

void ReadRun::abort(const QString& reason)
{
    m_session->stop();
    m_hasFailed = m_hasFailed || !m_ranges.isEmpty();
    while (!m_ranges.isEmpty())
        emit rangeFinished({m_ranges.takeFirst(), reason, QList<qint64>()});
    emit finished();
}
