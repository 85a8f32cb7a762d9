#include "panel/session/request_feed.h"

#include "data/reply_handling.h"

#include <utility>

namespace kx
{

void RequestFeed::feed()
{
    if (m_port->hasQueued(m_kind) || m_waiting.isEmpty())
        return;
    m_current = m_waiting.takeFirst();
    if (m_kind == WRITE_JOB)
        m_port->write(m_current.wanted);
    else
        m_port->read(m_current.wanted.range);
}

RequestFeed::Request RequestFeed::takeEnded(const ExchangeRecord& record)
{
    // The reply to a request that the driver has given up meanwhile is ignored.
    if (record.job.kind != m_kind || record.result == REPLY_RETRY || record.result == REPLY_IGNORED)
        return Request();
    return std::exchange(m_current, Request());
}

RequestFeed::Request RequestFeed::take(int handle)
{
    if (handle != 0 && handle == m_current.handle) {
        m_port->drop(m_kind);
        return std::exchange(m_current, Request());
    }
    for (int i = 0; i < m_waiting.size(); ++i) {
        if (m_waiting.at(i).handle == handle)
            return m_waiting.takeAt(i);
    }
    return Request();
}

QList<RequestFeed::Request> RequestFeed::takeAll()
{
    QList<Request> all = std::exchange(m_waiting, {});
    if (m_current.handle != 0)
        all.prepend(std::exchange(m_current, Request()));
    return all;
}

} // namespace kx
