#ifndef KX_KXPANEL_EXCHANGES_EXCHANGE_TIMES_H
#define KX_KXPANEL_EXCHANGES_EXCHANGE_TIMES_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// When an exchange had the line, in microseconds since 1970 in UTC; each is not before the one
/// above it.
struct ExchangeTimes {
    qint64 sent = 0;         ///< its first character
    qint64 requestEnded = 0; ///< the end of its last character; `sent` if it was not transmitted
    qint64 replyBegan = 0;   ///< or nothing more was waited for
    qint64 replyEnded = 0;   ///< `replyBegan` when nothing came
};

/// By the exchange's clock, the characters of both frames and the turnaround: on a line that does
/// not keep its own time, as a pseudo-terminal, what they would take, for which the next request
/// waits. When bytes that are no whole reply came is not known: they are put at the exchange's end.
/// @param lineWasFree when the exchange before it ended. Clocks tell whole milliseconds: it
///        began then when that lies within the millisecond that it was sent in
ExchangeTimes timesOf(const Exchange& exchange, const kx::LineTiming& timing, qint64 lineWasFree);

/// What there is of it until another has the line.
ExchangeTimes cutAt(const ExchangeTimes& times, qint64 end);

/// Microseconds of a stretch of time in which the line was used so.
struct LineShares {
    qint64 sending = 0;
    qint64 waiting = 0;
    qint64 receiving = 0;
    qint64 silence = 0;

    qint64 all() const { return sending + waiting + receiving + silence; }
    /// Characters were on the line, 0 to 1.
    double used() const;
    /// Adds what lies between `from` and `to` of an exchange.
    void add(const ExchangeTimes& times, qint64 from, qint64 to);
};

} // namespace kxpanel

#endif
