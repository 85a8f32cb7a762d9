#include "kxpanel/machine/machine_events.h"

#include "data/reply_handling.h"
#include "exchange/failure.h"
#include "panel/session/driver_values.h"
#include "panel/session/session_events.h"
#include "panel/text/frame_text.h"

namespace kxpanel
{

Exchange exchangeOf(const kx::ExchangeRecord& record, qint64 number)
{
    Exchange exchange;
    exchange.number = number;
    exchange.kind = static_cast<JobKind>(record.job.kind);
    exchange.range = kx::rangeOf(record.job);
    exchange.request = record.request;
    exchange.reply = record.reply;
    exchange.replyKind = record.replyKind;
    exchange.wasAccepted = record.result == REPLY_ACCEPTED;
    exchange.wasRepeated = record.repeated;
    exchange.isFinal = record.result != REPLY_RETRY;
    exchange.result = record.result;
    exchange.exceptionCode = record.exceptionCode;
    exchange.foreignReplies = record.foreignReplies;
    exchange.errorText = record.errorText;
    exchange.outcome = kx::outcomeText(record);
    exchange.reason = kx::reasonText(record);
    exchange.sentAt = record.sentAt.toMSecsSinceEpoch();
    exchange.finishedAt = record.finishedAt.toMSecsSinceEpoch();
    exchange.turnaround = record.turnaround;
    return exchange;
}

kx::ExchangeRecord recordOf(const Exchange& exchange)
{
    kx::ExchangeRecord record;
    record.request = exchange.request;
    record.reply = exchange.reply;
    record.replyKind = exchange.replyKind;
    record.exceptionCode = exchange.exceptionCode;
    record.foreignReplies = exchange.foreignReplies;
    record.result = exchange.result;
    record.errorText = exchange.errorText;
    record.repeated = exchange.wasRepeated;
    record.sentAt = QDateTime::fromMSecsSinceEpoch(exchange.sentAt, Qt::UTC);
    record.finishedAt = QDateTime::fromMSecsSinceEpoch(exchange.finishedAt, Qt::UTC);
    record.turnaround = exchange.turnaround;
    return record;
}

void registerMachineTypes()
{
    kx::registerEventTypes();
    qRegisterMetaType<LineStatus>("kxpanel::LineStatus");
    qRegisterMetaType<Missed>("kxpanel::Missed");
    qRegisterMetaType<QVector<Reading>>("QVector<kxpanel::Reading>");
    qRegisterMetaType<QVector<Exchange>>("QVector<kxpanel::Exchange>");
    qRegisterMetaType<kx::WatchSummary>("kx::WatchSummary");
}

} // namespace kxpanel
