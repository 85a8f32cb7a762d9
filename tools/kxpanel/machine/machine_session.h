#ifndef KX_KXPANEL_MACHINE_MACHINE_SESSION_H
#define KX_KXPANEL_MACHINE_MACHINE_SESSION_H

#include "kxhost/gateway/gateway_advice.h"
#include "kxpanel/machine/polled_values.h"
#include "panel/watch/watch.h"

#include <QtCore/QSet>
#include <QtCore/QTimer>

#include <memory>

namespace kxpanel
{

/// A session at work, of which it tells plain values: what happens often is gathered.
class MachineSession : public QObject
{
    Q_OBJECT

public:
    /// @param session not started; its line must outlive this
    /// @param advice null: without a gateway
    /// @param exchanges ended before, which their numbers go on from
    MachineSession(std::unique_ptr<kx::Session> session, std::unique_ptr<kx::GatewayAdvice> advice,
                   qint64 exchanges);

    /// Before start(), and at any time after it.
    void setValues(const QList<WatchedValue>& values);
    void start();
    /// Ends the session and all jobs on it, and tells what was gathered.
    void stop();

    kx::Session* session() const { return m_session.get(); }
    qint64 exchanges() const { return m_exchangeCount; }

signals:
    /// As those of Machine.
    void valuesRead(const QVector<kxpanel::Reading>& readings);
    void exchanged(const QVector<kxpanel::Exchange>& exchanges);
    void counted(const kx::WatchSummary& summary);
    void cycleFinished(qint64 cycles);
    /// @param fault as LineStatus::fault
    void linkChanged(bool isLost, const QString& fault);

private:
    void onExchange(const kx::ExchangeRecord& record);
    void tellLink(const QList<kx::LinkEvent>& events);
    QString faultNow() const;
    void gather();
    void tellGathered();

    std::unique_ptr<kx::Session> m_session;
    std::unique_ptr<kx::GatewayAdvice> m_advice;
    kx::Watch m_watch;
    PolledValues m_values;
    QSet<int> m_stations; ///< of the values: a scan tells by itself who is silent
    kx::LinkState m_link; ///< of these
    bool m_isLost = false;
    QString m_fault;
    QVector<Exchange> m_exchanges; ///< not yet told
    qint64 m_exchangeCount;
    qint64 m_epoch = 0; ///< milliseconds since 1970 at which the session's clock showed 0
    QTimer m_gathering;
    QTimer m_counting;
};

} // namespace kxpanel

#endif
