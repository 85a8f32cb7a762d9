#ifndef KX_PANEL_SESSION_WRITE_PACER_H
#define KX_PANEL_SESSION_WRITE_PACER_H

#include "panel/session/driver_session.h"

namespace kx
{

/// Feeds writes to the driver so that none is lost in silence: every one ends in
/// finished(), confirmed or not.
///
/// The driver's queue holds 513 writes, of which a further one replaces the last, and a
/// queued write is replaced by a newer one of the same target. So no more than a few
/// are queued at once, and none whose target is queued already; the rest wait here, in
/// their order.
class WritePacer : public QObject
{
    Q_OBJECT

public:
    /// The session must outlive the pacer, and nothing else may write through it.
    explicit WritePacer(DriverSession* session);

    /// Queues one write, which must be one request of the driver's: no longer than
    /// `maxWords` registers, its station named, of a type that can be written. Returns
    /// its number, from 0 up.
    int add(const Assignment& assignment);

    /// Writes that have not ended.
    int pending() const { return int(m_queued.size()) + int(m_waiting.size()); }

    /// Ends all that have not ended as not confirmed, as before the session is
    /// initialised anew or when it was stopped for good. What was queued may have been
    /// carried out.
    void abandon();

signals:
    /// `record` is that of the last request; of writes abandoned it is empty.
    void finished(int number, bool isConfirmed, const ExchangeRecord& record);

private:
    struct Write {
        int number;
        Assignment assignment;
    };

    void feed();
    bool isTargetQueued(const AddressRange& range) const;
    void takeExchange(const ExchangeRecord& record);

    DriverSession* m_session;
    QList<Write> m_queued;  ///< in the driver
    QList<Write> m_waiting; ///< not yet
    int m_nextNumber = 0;
    bool m_isFeeding = false;
};

} // namespace kx

#endif
