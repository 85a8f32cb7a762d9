#ifndef KX_PANEL_WATCH_WATCH_H
#define KX_PANEL_WATCH_WATCH_H

#include "addresses/export.h"
#include "panel/session/session.h"
#include "panel/text/summary_text.h"
#include "panel/watch/link_events.h"
#include "panel/watch/watch_list.h"

namespace kx
{

/// What a panel shows of a session: a watch list with its values, the state of line and
/// stations, and cycles. It listens; whoever owns the session starts and stops it.
///
/// It lives in the session's thread, and is called there only. Its signals carry values and
/// may be taken in another thread; entries are looked up where it lives.
class KXRUNTIME_EXPORT Watch : public QObject
{
    Q_OBJECT

public:
    /// @param session must outlive the watch; its cyclic reads are the watch's from now on
    explicit Watch(Session* session, QObject* parent = nullptr);

    /// Replaces what is watched, also while the session polls; it is polled from the next
    /// request on. What is known of addresses that stay is kept, and cycles are counted on.
    /// Not for slots of entriesChanged(): others would get indexes of the list before.
    /// @param tags none: nothing is polled. Those of addresses that do not exist are left out,
    /// and Session::failed() tells so later
    void setTags(const QList<Tag>& tags);

    const WatchList& list() const { return m_list; }
    WatchSummary summary() const;
    /// Milliseconds on the clock of the list's entries.
    qint64 now() const { return m_session->elapsed(); }

    /// What is wrong with the line or its stations now; empty when nothing is.
    QString linkFault() const { return m_link.faultText(); }

    /// Whether the device failed: an address was never read or its last read failed,
    /// or the line was lost for good and has not been opened since.
    bool hasDeviceFailed() const { return m_isLineLost || !m_list.allAnswered(); }

signals:
    /// The list is another: indexes mean other entries.
    void listReplaced();
    /// A request has ended. The first signal about it; the others follow in the order below.
    void exchanged(const kx::ExchangeRecord& record);
    /// The line or a station is lost or back.
    void linkChanged(const kx::LinkEvent& event);
    /// Values became known or changed, or the states of addresses did.
    /// @param indexes in the list, rising
    void entriesChanged(const QList<int>& indexes);
    /// Every tag of the shortest interval was read once more, failed or was left out since its
    /// station does not answer. What was on its way at setTags() belongs to no cycle.
    void cycleFinished(qint64 cycles);
    /// The line is lost for good; the session has stopped.
    void lineLost(const kx::Failure& failure);

private:
    void onChange(const ValueChange& change);
    void onExchange(const ExchangeRecord& record);
    void onRead(const ExchangeRecord& record);
    void countCycle();
    void onShortened(int station, const StationRules& rules);
    void onLineLost(const Failure& failure);
    void onLineOpened();
    void tell(const QList<int>& indexes);
    void tellLink(const QList<LinkEvent>& events);
    QList<qint64> valuesAfter(const ValueChange& change, const WatchEntry& entry) const;

    Session* m_session;
    WatchList m_list;
    LinkState m_link;
    qint64 m_cycles = 0;
    bool m_isLineLost = false;
};

} // namespace kx

#endif
