#include "panel/jobs/scan_job.h"

#include "registers/register_types.h"

namespace kx
{

ScanJob::ScanJob(Session* session, const QList<int>& stations, QObject* parent)
    : Job(session, parent), m_stations(stations)
{
    qRegisterMetaType<ScanReply>("kx::ScanReply");
    connect(session, &Session::readFinished, this, &ScanJob::onEnd);
}

void ScanJob::askNextStation()
{
    if (m_asked == m_stations.size())
        return end();
    // Every controller has D0; one that has not refuses, which is an answer, too.
    AddressRange range;
    range.type = findRegisterType(QStringLiteral("D"));
    range.station = m_stations.at(m_asked);
    await([range](Session* session) { return session->read(range); });
}

void ScanJob::onEnd(int handle, const ReadEnd& end)
{
    if (!takesEnd(handle))
        return;
    if (isSessionOver(end.failure))
        return endEarly(end.failure);
    ++m_asked;
    if (end.failure.kind == FailureKind::OutOfRange)
        noteFailure(end.failure); // which was not asked
    const ScanReply reply = scanReplyOf(end.exchange);
    if (reply.answer != ScanAnswer::None && m_stations.contains(reply.station)
        && !m_answered.contains(reply.station)) {
        m_answered.insert(reply.station);
        emit stationAnswered(reply);
    }
    if (isRunning())
        emit progress(m_asked, static_cast<int>(m_stations.size()));
    if (isRunning())
        askNextStation();
}

} // namespace kx
