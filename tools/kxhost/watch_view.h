#ifndef KX_TOOLS_WATCH_VIEW_H
#define KX_TOOLS_WATCH_VIEW_H

#include "exchange/exchange_record.h"
#include "exchange/statistics.h"
#include "kxhost/link_events.h"
#include "kxhost/watch_list.h"

/// Figures of a whole run, as shown at its end.
struct WatchSummary {
    Statistics statistics;
    LineTiming timing;
    qint64 elapsed = 0; ///< milliseconds
    qint64 cycles = 0;
};

/// Where a watch shows what happens.
class WatchView
{
public:
    virtual ~WatchView() = default;

    /// A value became known or changed, or the state of an address did.
    virtual void showEntry(const WatchEntry& entry, const QDateTime& time) = 0;
    /// The line or a station is lost or back.
    virtual void showLinkEvent(const LinkEvent& event, const QDateTime& time) = 0;
    virtual void showExchange(const ExchangeRecord& record) = 0;
    virtual void showSummary(const WatchSummary& summary) = 0;
};

#endif
