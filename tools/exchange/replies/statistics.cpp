#include "exchange/replies/statistics.h"

#include "data/reply_handling.h"

namespace kx
{

namespace
{

void countBad(const ExchangeRecord& record, BadReplies* bad)
{
    switch (record.replyKind) {
    case ReplyKind::None:
        ++bad->none;
        return;
    case ReplyKind::Short:
        ++bad->incomplete;
        return;
    case ReplyKind::Bad:
        ++bad->damaged;
        return;
    case ReplyKind::Exception:
        ++bad->exceptions;
        return;
    case ReplyKind::Foreign:
        ++bad->foreign;
        return;
    case ReplyKind::WrongByteCount:
        ++bad->byteCounts;
        return;
    case ReplyKind::Lost:
        ++bad->lost;
        return;
    case ReplyKind::Broadcast:
        ++bad->broadcasts;
        return;
    case ReplyKind::NeverSilent:
        ++bad->neverSilent;
        return;
    case ReplyKind::Good:
    case ReplyKind::NotSent:
        ++bad->ignored;
    }
}

} // namespace

qint64 BadReplies::sum() const
{
    return none + incomplete + damaged + exceptions + foreign + lost + broadcasts + ignored
           + byteCounts + neverSilent;
}

void Statistics::add(const ExchangeRecord& record)
{
    if (record.replyKind == ReplyKind::NotSent) {
        ++notSent;
        return;
    }
    ++requests;
    if (record.result == REPLY_RETRY)
        ++repeated;
    else if (record.result == REPLY_ACCEPTED)
        ++accepted;
    else
        ++failed;
    if (record.result != REPLY_ACCEPTED)
        countBad(record, &bad);
    bytesSent += record.request.size();
    bytesReceived += record.reply.size();
}

double Statistics::requestsPerSecond(const LineTiming& timing, qint64 elapsedMilliseconds) const
{
    const double spent = spentTime(timing, elapsedMilliseconds);
    return spent > 0 ? static_cast<double>(requests) * 1000000 / spent : 0;
}

double Statistics::lineLoad(const LineTiming& timing, qint64 elapsedMilliseconds) const
{
    const double spent = spentTime(timing, elapsedMilliseconds);
    const qint64 busy = timing.transmissionTime(bytesSent + bytesReceived);
    return spent > 0 ? static_cast<double>(busy) / spent : 0;
}

double Statistics::spentTime(const LineTiming& timing, qint64 elapsedMilliseconds) const
{
    const qint64 busy = timing.transmissionTime(bytesSent + bytesReceived);
    const qint64 needed = busy + requests * timing.frameGap();
    return static_cast<double>(qMax(elapsedMilliseconds * 1000, needed));
}

} // namespace kx
