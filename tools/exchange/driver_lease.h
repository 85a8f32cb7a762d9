#ifndef KX_EXCHANGE_DRIVER_LEASE_H
#define KX_EXCHANGE_DRIVER_LEASE_H

#include <QtCore/QString>

namespace kx
{

/// The claim on the process's one driver. The driver is a single object with one cache and one
/// set of queues, so a second user would discard what the first has queued.
///
/// Held from construction to destruction by whoever was first. May be made and destroyed on
/// any thread.
class DriverLease
{
public:
    DriverLease();
    ~DriverLease();
    Q_DISABLE_COPY(DriverLease)

    /// False when somebody else held the driver already; then it must not be called.
    bool isHeld() const { return m_isHeld; }

    /// Why a claim failed, in one line that says what to do.
    static QString refusal();

private:
    bool m_isHeld;
};

} // namespace kx

#endif
