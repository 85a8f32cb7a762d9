#ifndef KX_KXPANEL_MACHINE_MACHINE_SESSION_H
#define KX_KXPANEL_MACHINE_MACHINE_SESSION_H

#include "kxhost/gateway/gateway_advice.h"
#include "kxpanel/machine/backlog.h"
#include "kxpanel/machine/polled_values.h"
#include "kxpanel/machine/session_times.h"
#include "panel/watch/watch.h"

#include <QtCore/QSet>
#include <QtCore/QTimer>

#include <functional>
#include <memory>

namespace kxpanel
{

/// A session at work, of which it tells plain values: what happens often is gathered, and while
/// the listeners stand still so is all else, up to a bound.
class MachineSession : public QObject
{
    Q_OBJECT

public:
    /// Exchanges that are kept for listeners that stand still: the latest.
    static constexpr int MOST_KEPT = 5000;

    /// @param session not started; its line must outlive this
    /// @param advice null: without a gateway
    /// @param backlog of what this tells, as told() says; must outlive it; null: listeners never
    ///                stand still
    /// @param exchanges ended before, which their numbers go on from
    /// @param mostKept as MOST_KEPT
    MachineSession(std::unique_ptr<kx::Session> session, std::unique_ptr<kx::GatewayAdvice> advice,
                   Backlog* backlog, qint64 exchanges, int mostKept = MOST_KEPT,
                   const Clocks& clocks = &systemTimes);

    /// Before start(), and at any time after it.
    void setValues(const QList<WatchedValue>& values);
    void start();
    /// Ends the session and all jobs on it, and tells what was gathered.
    void stop();

    kx::Session* session() const { return m_session.get(); }
    qint64 exchanges() const { return m_exchangeCount; }
    /// The line is lost, and is being opened again.
    bool isLost() const { return m_isLost; }

signals:
    /// As those of Machine.
    void valuesRead(const QVector<kxpanel::Reading>& readings);
    void exchanged(const QVector<kxpanel::Exchange>& exchanges);
    void counted(const kx::WatchSummary& summary);
    void cycleFinished(qint64 cycles);
    void missed(const kxpanel::Missed& missed);
    void clockSet(qint64 by);
    /// Behind each batch: so much was added to the backlog.
    void told(int amount);
    /// @param fault as LineStatus::fault
    void linkChanged(bool isLost, const QString& fault);
    /// As kx::Session::requestsShortened().
    void requestsShortened(int station, const kx::StationRules& rules);

private:
    void onExchange(const kx::ExchangeRecord& record);
    void takeAnswer(const kx::AddressRange& polled);
    void tellLink(const QList<kx::LinkEvent>& events);
    QString faultNow() const;
    bool areBehind() const { return m_backlog && m_backlog->isFull(); }
    void setLost(bool isLost);
    void lookAtClocks();
    void noteRest(qint64 from);
    void moveTimes(qint64 by);
    void gather();
    void keepLatest();
    void onGathered();
    void tellMissed();
    void tellGathered();

    std::unique_ptr<kx::Session> m_session;
    std::unique_ptr<kx::GatewayAdvice> m_advice;
    Backlog* m_backlog;
    kx::Watch m_watch;
    PolledValues m_values;
    QSet<int> m_stations; ///< of the values: a scan tells by itself who is silent
    kx::LinkState m_link; ///< of these
    bool m_isLost = false;
    QString m_fault;
    bool m_hasLinkNews = false;
    qint64 m_cycles = 0;           ///< finished; 0: told
    QVector<Exchange> m_exchanges; ///< not yet told, the latest
    int m_mostKept;
    Missed m_missed; ///< from 0: nothing
    qint64 m_exchangeCount;
    Clocks m_clocks;
    SessionTimes m_times;
    qint64 m_awakeAt = -1; ///< on the steady clock, when it looked at the clocks last; -1: never
    qint64 m_setBy = 0;    ///< milliseconds; not yet told
    QTimer m_gathering;
    QTimer m_counting;
};

} // namespace kxpanel

#endif
