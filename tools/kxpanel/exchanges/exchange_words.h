/// Exchanges in the words of a table. Pure functions.
#ifndef KX_KXPANEL_EXCHANGES_EXCHANGE_WORDS_H
#define KX_KXPANEL_EXCHANGES_EXCHANGE_WORDS_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// "poll", "read", "write", "recipe write", "recipe read"; translated.
QString kindWords(JobKind kind);

/// "read D100:4", "write Y10 = 1"; empty when nothing was sent.
QString requestWords(const Exchange& exchange);

/// What came: the values read, such as "1234 17 5 0", "confirmed" or the exception, and what is
/// wrong with it: "CRC 9B 37 instead of 9B 36"; empty when nothing did.
QString replyWords(const Exchange& exchange);

/// Of the request; 0 when nothing was sent.
int stationOf(const Exchange& exchange);

/// Milliseconds since 1970 as "14:05:12.250", in local time.
QString timeOfDay(qint64 milliseconds);

/// Microseconds as "8.2 ms", and "0.052 ms" below a millisecond; "<0.1 ms" for 0, a dash for a
/// negative time.
QString timeWords(qint64 microseconds);

} // namespace kxpanel

#endif
