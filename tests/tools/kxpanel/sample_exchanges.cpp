#include "sample_exchanges.h"

#include "data/reply_handling.h"
#include "registers/register_types.h"
#include "support/driver_fixture.h"

namespace kxpanel
{

Exchange answeredPoll()
{
    Exchange exchange;
    exchange.kind = CYCLIC_READ_JOB;
    exchange.range = {findRegisterType(QStringLiteral("D")), 100, 2, 1};
    // station, function, address, quantity, CRC
    exchange.request = bytes("01 03 00 64 00 02 85 D4");
    // station, function, byte count, two registers, CRC
    exchange.reply = bytes("01 03 04 04 D2 00 11 9B 36");
    exchange.replyKind = kx::ReplyKind::Good;
    exchange.wasAccepted = true;
    exchange.result = REPLY_ACCEPTED;
    exchange.outcome = QStringLiteral("good, accepted");
    exchange.reason = QStringLiteral("good");
    exchange.sentAt = SAMPLE_TIME;
    exchange.finishedAt = SAMPLE_TIME + 30;
    exchange.turnaround = 5000;
    return exchange;
}

Exchange unansweredPoll()
{
    Exchange exchange = answeredPoll();
    exchange.reply.clear();
    exchange.replyKind = kx::ReplyKind::None;
    exchange.wasAccepted = false;
    exchange.isFinal = false;
    exchange.result = REPLY_RETRY;
    exchange.outcome = QStringLiteral("no reply, repeated");
    exchange.reason = QStringLiteral("no reply");
    exchange.finishedAt = SAMPLE_TIME + 300;
    exchange.turnaround = -1;
    return exchange;
}

Exchange refusedWrite()
{
    Exchange exchange = answeredPoll();
    exchange.kind = WRITE_JOB;
    exchange.range = {findRegisterType(QStringLiteral("Y")), 8, 1, 2};
    // station, function, coil, on, CRC
    exchange.request = bytes("02 05 00 08 FF 00 0D CB");
    // station, function with the flag of a refusal, code, CRC
    exchange.reply = bytes("02 85 02 33 51");
    exchange.replyKind = kx::ReplyKind::Exception;
    exchange.exceptionCode = 2;
    exchange.wasAccepted = false;
    exchange.result = REPLY_FAILED;
    exchange.errorText = QStringLiteral("5,2,8,Y");
    exchange.outcome = QStringLiteral("exception 2 (illegal data address), failed: 5,2,8,Y");
    exchange.reason = QStringLiteral("exception 2 (illegal data address)");
    exchange.turnaround = 3100;
    return exchange;
}

QVector<Exchange> answeredPolls(int count)
{
    QVector<Exchange> exchanges;
    for (int i = 0; i < count; ++i) {
        exchanges << answeredPoll();
        exchanges.last().number = i + 1;
        exchanges.last().endsCycle = true;
        exchanges.last().sentAt += 50 * qint64(i);
        exchanges.last().finishedAt += 50 * qint64(i);
    }
    return exchanges;
}

} // namespace kxpanel
