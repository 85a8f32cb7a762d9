/// Time as an exchange loop sees it: the system's, or one that a simulation moves.
#ifndef KX_EXCHANGE_LOOP_CLOCK_H
#define KX_EXCHANGE_LOOP_CLOCK_H

#include "addresses/export.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

namespace kx
{

class PreciseTimer;

const qint64 MICROSECONDS_PER_MILLISECOND = 1000;

class KXRUNTIME_EXPORT LoopClock : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Microseconds since some moment in the past.
    virtual qint64 now() const = 0;
    /// Sends woken() once after so many microseconds, never from inside this call;
    /// replaces what was asked before.
    virtual void wakeAfter(qint64 microseconds) = 0;
    /// The same for a moment that counts, such as the end of a frame gap: a clock may keep the
    /// processor busy for some tens of microseconds to be there. As wakeAfter() unless overridden.
    virtual void wakeExactlyAfter(qint64 microseconds) { wakeAfter(microseconds); }
    virtual void cancel() = 0;

signals:
    void woken();
};

class KXRUNTIME_EXPORT SystemClock : public LoopClock
{
    Q_OBJECT

public:
    explicit SystemClock(QObject* parent = nullptr);

    qint64 now() const override;
    /// Never early. On Linux the event loop watches the system's timer as a socket, so
    /// woken() does not come while it leaves out sockets; elsewhere whole milliseconds, rounded up.
    void wakeAfter(qint64 microseconds) override;
    void wakeExactlyAfter(qint64 microseconds) override;
    void cancel() override;

private:
    PreciseTimer* m_timer; ///< a child
    QElapsedTimer m_since;
};

} // namespace kx

#endif
