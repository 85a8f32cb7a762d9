#ifndef KX_PANEL_SESSION_SESSION_PARTS_H
#define KX_PANEL_SESSION_SESSION_PARTS_H

#include "exchange/exchange_loop.h"
#include "panel/session/driver_port.h"
#include "panel/session/polling.h"
#include "panel/session/recipe_feed.h"
#include "panel/session/request_feed.h"
#include "panel/session/session.h"

namespace kx
{

/// What a session works with. Its header, which is installed, names none of it.
struct Session::Parts {
    Parts(const DriverEntryPoints& entryPoints, Line* line, const SessionSettings& settings,
          LoopClock* clock, Session* session);

    LoopClock* clock; ///< the session's child, as the loop is, unless the caller has one
    DriverPort port;
    ExchangeLoop* loop; ///< goes along with the session to another thread
    Polling polling;
    RequestFeed reads;
    RequestFeed writes;
    RecipeFeed recipes;
};

} // namespace kx

#endif
