#ifndef KX_PANEL_WATCH_WATCH_RUN_H
#define KX_PANEL_WATCH_WATCH_RUN_H

#include "panel/session/session.h"
#include "panel/watch/watch_view.h"

namespace kx
{

/// Watches addresses through a session and tells a view what happens.
class WatchRun : public QObject
{
    Q_OBJECT

public:
    /// @param cycles cycles after which the run is finished; 0: until stopped. A
    ///               cycle is over when every cyclic read was answered or failed.
    WatchRun(Session* session, const QList<Tag>& tags, qint64 cycles, WatchView* view);

    void start();
    /// Stops the exchange and shows the summary, once.
    void finish();

    WatchSummary summary() const;
    const WatchList& list() const { return m_list; }
    /// Milliseconds on the clock of the list's entries.
    qint64 now() const { return m_session->elapsed(); }

    /// What is wrong with the line or its stations now; empty when nothing is.
    QString linkFault() const { return m_link.faultText(); }

    /// Whether the device failed: an address was never read or its last read failed,
    /// or the line was lost.
    bool hasDeviceFailed() const { return m_isLineLost || !m_list.allAnswered(); }

signals:
    void finished();
    void lineLost(const QString& error);

private:
    void takeChange(const ValueChange& change);
    void takeExchange(const ExchangeRecord& record);
    void takeRead(const ExchangeRecord& record);
    void loseLine(const Failure& failure);
    void show(const QList<int>& indexes);
    void showLink(const QList<LinkEvent>& events);
    qint64 valueOf(const WatchEntry& entry) const;

    Session* m_session;
    QList<AddressRange> m_ranges;
    WatchList m_list;
    LinkState m_link;
    WatchView* m_view;
    qint64 m_cycleLimit;
    int m_readsPerCycle = 0;
    qint64 m_readsFinished = 0;
    bool m_isFinished = false;
    bool m_isLineLost = false;
};

} // namespace kx

#endif
