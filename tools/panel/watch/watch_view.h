#ifndef KX_PANEL_WATCH_WATCH_VIEW_H
#define KX_PANEL_WATCH_WATCH_VIEW_H

#include "exchange/replies/exchange_record.h"
#include "panel/text/summary_text.h"
#include "panel/watch/link_events.h"
#include "panel/watch/watch_list.h"

namespace kx
{

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

} // namespace kx

#endif
