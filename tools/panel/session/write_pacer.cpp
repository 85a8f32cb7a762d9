#include "panel/session/write_pacer.h"

namespace kx
{

namespace
{

// Enough that the driver never runs dry, far below what its queue holds.
const int MOST_QUEUED = 64;

bool isSameTarget(const AddressRange& one, const AddressRange& other)
{
    return one.type == other.type && one.address == other.address && one.values == other.values
           && one.station == other.station;
}

bool isTarget(const VARIABLE& job, const AddressRange& range)
{
    return job.station == range.station && job.address == range.address
           && job.count == range.driverCount() && job.regType == QLatin1String(range.type->name);
}

} // namespace

WritePacer::WritePacer(DriverSession* session) : m_session(session)
{
    connect(session, &DriverSession::exchanged, this, &WritePacer::takeExchange);
    connect(session, &DriverSession::lineFailed, this, &WritePacer::abandon);
}

int WritePacer::add(const Assignment& assignment)
{
    const int number = m_nextNumber++;
    m_waiting.append({number, assignment});
    feed();
    return number;
}

bool WritePacer::isTargetQueued(const AddressRange& range) const
{
    for (const Write& write : m_queued) {
        if (isSameTarget(write.assignment.range, range))
            return true;
    }
    return false;
}

void WritePacer::feed()
{
    if (m_isFeeding)
        return; // a slot of the session's adds a write while one is being queued
    m_isFeeding = true;
    while (!m_waiting.isEmpty() && m_queued.size() < MOST_QUEUED
           && !isTargetQueued(m_waiting.first().assignment.range)) {
        m_queued.append(m_waiting.takeFirst());
        const Assignment assignment = m_queued.last().assignment;
        m_session->write(assignment);
    }
    m_isFeeding = false;
}

void WritePacer::takeExchange(const ExchangeRecord& record)
{
    if (record.job.kind != WRITE_JOB || record.result == REPLY_RETRY)
        return;
    // The driver sends them in their order.
    if (m_queued.isEmpty() || !isTarget(record.job, m_queued.first().assignment.range))
        return;
    const int number = m_queued.takeFirst().number;
    emit finished(number, record.result == REPLY_ACCEPTED, record);
    feed();
}

void WritePacer::abandon()
{
    const QList<Write> ended = m_queued + m_waiting;
    m_queued.clear();
    m_waiting.clear();
    for (const Write& write : ended)
        emit finished(write.number, false, ExchangeRecord());
}

} // namespace kx
