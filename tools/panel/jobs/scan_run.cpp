#include "panel/jobs/scan_run.h"

namespace kx
{

ScanRun::ScanRun(DriverSession* session, const QList<int>& stations, QObject* parent)
    : QObject(parent), m_session(session), m_stations(stations)
{
    connect(session, &DriverSession::exchanged, this, &ScanRun::handleExchange);
    connect(session, &DriverSession::lineFailed, this, &ScanRun::loseLine);
}

void ScanRun::start()
{
    // Every controller has D0; one that has not refuses, which is an answer, too.
    QList<AddressRange> ranges;
    for (const int station : m_stations) {
        AddressRange range;
        range.type = findRegisterType(QString::fromLatin1("D"));
        range.station = station;
        ranges << range;
    }
    m_session->watch(ranges);
    m_session->start();
}

void ScanRun::abort(const QString& /*reason*/)
{
    if (!m_finished)
        finish();
}

void ScanRun::loseLine(const QString& reason)
{
    if (m_finished)
        return;
    m_failure = reason;
    finish();
}

void ScanRun::handleExchange(const ExchangeRecord& record)
{
    if (m_finished)
        return;
    ++m_asked;
    const ScanReply reply = scanReplyOf(record);
    if (reply.answer != ScanAnswer::None && m_stations.contains(reply.station)
        && !m_answered.contains(reply.station)) {
        m_answered.insert(reply.station);
        emit stationAnswered(reply);
    }
    emit stationAsked();
    if (m_asked == static_cast<int>(m_stations.size()))
        finish();
}

void ScanRun::finish()
{
    m_finished = true;
    m_session->stop();
    emit finished();
}

} // namespace kx
