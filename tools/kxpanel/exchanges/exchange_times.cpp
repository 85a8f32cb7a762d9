#include "kxpanel/exchanges/exchange_times.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const qint64 CLOCK_MILLISECOND = 1000; // microseconds

bool wasTransmitted(const Exchange& exchange)
{
    return exchange.replyKind != kx::ReplyKind::NotSent
           && exchange.replyKind != kx::ReplyKind::NeverSilent;
}

qint64 overlap(qint64 begin, qint64 end, qint64 from, qint64 to)
{
    return std::max(std::min(end, to) - std::max(begin, from), qint64(0));
}

} // namespace

ExchangeTimes timesOf(const Exchange& exchange, const kx::LineTiming& timing, qint64 lineWasFree)
{
    const qint64 clock = exchange.sentAt * CLOCK_MILLISECOND;
    ExchangeTimes times;
    times.sent =
        lineWasFree > clock && lineWasFree < clock + CLOCK_MILLISECOND ? lineWasFree : clock;
    times.requestEnded = times.sent;
    if (wasTransmitted(exchange))
        times.requestEnded += timing.transmissionTime(exchange.request.size());
    if (exchange.turnaround < 0) {
        times.replyEnded = std::max(times.requestEnded, exchange.finishedAt * CLOCK_MILLISECOND);
        const qint64 received = timing.transmissionTime(exchange.reply.size());
        times.replyBegan = std::max(times.requestEnded, times.replyEnded - received);
        return times;
    }
    times.replyBegan = times.requestEnded + exchange.turnaround;
    times.replyEnded = times.replyBegan + timing.transmissionTime(exchange.reply.size());
    return times;
}

ExchangeTimes cutAt(const ExchangeTimes& times, qint64 end)
{
    return {std::min(times.sent, end), std::min(times.requestEnded, end),
            std::min(times.replyBegan, end), std::min(times.replyEnded, end)};
}

double LineShares::used() const
{
    return all() > 0 ? static_cast<double>(sending + receiving) / static_cast<double>(all()) : 0;
}

void LineShares::add(const ExchangeTimes& times, qint64 from, qint64 to)
{
    sending += overlap(times.sent, times.requestEnded, from, to);
    waiting += overlap(times.requestEnded, times.replyBegan, from, to);
    receiving += overlap(times.replyBegan, times.replyEnded, from, to);
}

} // namespace kxpanel
