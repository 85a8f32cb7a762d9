#ifndef KX_PANEL_SESSION_REQUEST_FEED_H
#define KX_PANEL_SESSION_REQUEST_FEED_H

#include "panel/session/driver_port.h"

namespace kx
{

/// One-off reads or writes that wait for their turn, each known by its handle. Only one is in
/// the driver at a time:
///
/// - the driver tells the end of the read that was queued last, and drops all when one fails;
/// - of writes it keeps 513, of which a further one replaces the last, and a waiting write is
///   replaced by a newer one of the same range;
/// - one that the driver has can be called off only while no other of its kind is behind it.
class RequestFeed
{
public:
    struct Request {
        int handle = 0;    ///< 0: none
        Assignment wanted; ///< of a read without values
    };

    /// @param kind WRITE_JOB or CONDITION_READ_JOB
    RequestFeed(JobKind kind, DriverPort* port) : m_kind(kind), m_port(port) {}

    /// Waits behind the earlier ones; see feed().
    void add(int handle, const Assignment& wanted) { m_waiting.append({handle, wanted}); }
    /// Hands the next one over when none is in the driver.
    void feed();

    /// The request that this exchange has ended, which leaves the feed; else one without a
    /// handle.
    Request takeEnded(const ExchangeRecord& record);
    /// Takes one back, from the driver too. Gives one without a handle when there is none.
    Request take(int handle);
    /// All, in their order, but not from the driver.
    QList<Request> takeAll();

private:
    JobKind m_kind;
    DriverPort* m_port;
    Request m_current; ///< in the driver
    QList<Request> m_waiting;
};

} // namespace kx

#endif
