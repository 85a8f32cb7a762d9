#ifndef KX_PANEL_SESSION_SESSION_SETTINGS_H
#define KX_PANEL_SESSION_SESSION_SETTINGS_H

#include "addresses/request_limits.h"
#include "exchange/exchange_settings.h"
#include "exchange/lines/line_timing.h"

namespace kx
{

/// What a session is made with.
struct SessionSettings {
    int link = 1;                ///< the number that the driver reports with each change
    bool writeLocalOnly = false; ///< writes reach the cache and no controller
    int retries = 3;             ///< bad replies in a row after which a request fails, 1 or more
    int maxWords = 32;           ///< longest request, in registers
    int maxBits = MOST_COILS_PER_READ; ///< longest poll of coils
    /// Polls are no longer than takes the least time on the line, than each station answers, and
    /// than comes within the time-out on a serial line; maxWords and maxBits are the most. Else the
    /// driver joins registers up to maxWords. A ReadJob's requests come within the time-out, too.
    bool choosesLengths = false;
    /// Of the serial line behind a gateway, which the session cannot know.
    int gatewayBaud = 9600;
    /// What characters take on the serial line, be it behind a gateway.
    LineTiming timingOf(LineTiming line) const
    {
        if (line.baud <= 0)
            line.baud = gatewayBaud;
        return line;
    }
    ExchangeSettings exchange;
};

} // namespace kx

#endif
