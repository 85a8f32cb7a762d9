#include "kxpanel/frames/frame_filter.h"

#include "kxpanel/exchanges/exchange_words.h"

namespace kxpanel
{

bool FrameFilter::lets(const Exchange& exchange) const
{
    return (station < 0 || stationOf(exchange) == station)
           && (kind == NO_JOB || exchange.kind == kind)
           && (verdicts.isEmpty() || verdicts.contains(verdictOf(exchange)))
           && (text.isEmpty() || requestWords(exchange).contains(text, Qt::CaseInsensitive));
}

} // namespace kxpanel
