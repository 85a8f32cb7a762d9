#ifndef KX_KXHOST_VIEWS_WATCH_WATCH_VIEW_H
#define KX_KXHOST_VIEWS_WATCH_WATCH_VIEW_H

#include "panel/watch/watch.h"

namespace kx
{

/// Shows what happens to a watch.
class WatchView : public QObject
{
    Q_OBJECT

public:
    /// Shows this watch from now on; called once. It stays the caller's.
    virtual void attach(const Watch* watch);
    virtual void showSummary(const WatchSummary& summary) = 0;

protected:
    /// A value became known or changed, or the state of an address did.
    virtual void showEntry(const WatchEntry& entry, const QDateTime& time) = 0;
    /// The line or a station is lost or back.
    virtual void showLinkEvent(const LinkEvent& event, const QDateTime& time) = 0;
    virtual void showExchange(const ExchangeRecord& record) = 0;

private:
    void showEntries(const QList<int>& indexes);

    const Watch* m_watch = nullptr;
};

} // namespace kx

#endif
