#ifndef KX_EXCHANGE_PRECISE_TIMER_H
#define KX_EXCHANGE_PRECISE_TIMER_H

#include "exchange/lead_time.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>

class QSocketNotifier;

namespace kx
{

/// A single-shot timer of microseconds, where QTimer knows whole milliseconds: the system's own
/// timer, which the event loop watches as a socket. Where there is none, or no descriptor is left
/// for it, whole milliseconds, rounded up. Never early.
class PreciseTimer : public QObject
{
    Q_OBJECT

public:
    explicit PreciseTimer(QObject* parent = nullptr);
    ~PreciseTimer() override;

    /// Sends timeout() once after so many microseconds, never from inside this call; replaces what
    /// was started before. From 0 on; less is 0.
    void start(qint64 microseconds);
    /// The same, but gets up before the time and waits for it awake, since getting up takes a
    /// while: as long as it took lately, at most LeadTime::LONGEST of the processor.
    void startExactly(qint64 microseconds);
    /// Nothing is sent, even if the time is up and has not been told yet.
    void stop();

signals:
    void timeout();

private:
    void startWithLead(qint64 microseconds, qint64 lead);
    bool arm(qint64 nanoseconds);
    void onReadable();

    int m_descriptor = -1;
    QSocketNotifier* m_notifier = nullptr; ///< a child, made by the first start()
    QTimer m_coarse{this};                 ///< where the system has no other
    QElapsedTimer m_since;                 ///< the latest start
    qint64 m_wanted = 0;                   ///< nanoseconds since then
    qint64 m_armed = 0;                    ///< of them, those to sleep
    bool m_isExact = false;
    LeadTime m_lead; ///< of exact starts
};

} // namespace kx

#endif
