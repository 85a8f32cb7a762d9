#ifndef KX_EXCHANGE_EXCHANGE_SETTINGS_H
#define KX_EXCHANGE_EXCHANGE_SETTINGS_H

namespace kx
{

/// How an exchange loop treats its line.
struct ExchangeSettings {
    int replyTimeout = 1000; ///< milliseconds from the end of the transmission
    int turnaround = 100;    ///< milliseconds that stations need to act on a broadcast
    int idleInterval = 20;   ///< milliseconds until the driver is asked again
    /// Milliseconds past the time-out in which a late reply may still come; negative:
    /// as long as the time-out.
    int settle = -1;
    int settleTime() const { return settle < 0 ? replyTimeout : settle; }
    /// Milliseconds of silence before each request, when longer than the frame gap: for
    /// gateways that deliver a reply twice.
    int quiet = 0;
};

} // namespace kx

#endif
