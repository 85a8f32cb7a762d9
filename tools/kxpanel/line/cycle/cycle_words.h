/// What the picture of the line shows, in words; translated. Pure functions.
#ifndef KX_KXPANEL_LINE_CYCLE_CYCLE_WORDS_H
#define KX_KXPANEL_LINE_CYCLE_CYCLE_WORDS_H

#include "kxpanel/line/cycle/line_record.h"

namespace kxpanel
{

/// "11:00:00.000, station 1: read D100:2; sent in 8.3 ms, answered after 5.0 ms, received in 9.4
/// ms, then 27.3 ms of silence; good, accepted; late".
/// @param place one that the record has
QString exchangeWords(const LineRecord& record, qint64 place);

/// "Line used 42.5 %: sent 20.0 %, waited 12.5 %, received 22.5 %, silence 45.0 %".
QString sharesWords(const LineShares& shares);

/// The same of a network, which tells nothing of its serial line: "Waited for replies 12.5 %,
/// silence 87.5 %".
QString networkSharesWords(const LineShares& shares);

} // namespace kxpanel

#endif
