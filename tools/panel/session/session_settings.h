#ifndef KX_PANEL_SESSION_SESSION_SETTINGS_H
#define KX_PANEL_SESSION_SESSION_SETTINGS_H

#include "exchange/exchange_settings.h"

namespace kx
{

/// What a session is made with.
struct SessionSettings {
    int link = 1;                ///< the number that the driver reports with each change
    bool writeLocalOnly = false; ///< writes reach the cache and no controller
    int retries = 3;             ///< bad replies in a row after which a request fails, 1 or more
    int maxWords = 32;           ///< longest request, in registers
    ExchangeSettings exchange;
};

} // namespace kx

#endif
