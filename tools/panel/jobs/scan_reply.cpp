#include "panel/jobs/scan_reply.h"

#include "exchange/failure.h"
#include "exchange/replies/reply_verdict.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const int SHORTEST_REPLY = 4; // station, function, CRC

QString answerText(const ScanReply& reply)
{
    if (!reply.fault.isEmpty())
        return Text::tr("answered with %1").arg(reply.fault);
    return reply.answer == ScanAnswer::Other ? Text::tr("answered with another or a late reply")
                                             : Text::tr("answered");
}

} // namespace

ScanReply scanReplyOf(const ExchangeRecord& record)
{
    ScanReply reply;
    reply.station = record.job.station;
    if (record.replyKind == ReplyKind::Good) {
        reply.answer = ScanAnswer::Value;
    } else if (record.replyKind == ReplyKind::Exception) {
        if (isGatewayException(record.exceptionCode))
            return reply;
        reply.answer = ScanAnswer::Exception;
        reply.exceptionCode = record.exceptionCode;
        reply.fault = exceptionText(record.exceptionCode);
    } else if (record.reply.size() >= SHORTEST_REPLY && endsWithItsCrc(record.reply)) {
        reply.answer = ScanAnswer::Other;
        reply.station = static_cast<unsigned char>(record.reply.at(0));
        if (record.replyKind == ReplyKind::WrongByteCount)
            reply.fault = Text::tr("a wrong byte count");
    }
    return reply;
}

QString scanRow(const ScanReply& reply)
{
    return Text::tr("station %1: %2").arg(QString::number(reply.station), answerText(reply));
}

QJsonObject scanJson(const ScanReply& reply)
{
    QJsonObject json{{QStringLiteral("event"), QStringLiteral("station")},
                     {QStringLiteral("station"), reply.station}};
    switch (reply.answer) {
    case ScanAnswer::Value:
        json[QStringLiteral("answer")] = QStringLiteral("value");
        break;
    case ScanAnswer::Exception:
        json[QStringLiteral("answer")] = QStringLiteral("exception");
        json[QStringLiteral("exception")] = reply.exceptionCode;
        break;
    default:
        json[QStringLiteral("answer")] = QStringLiteral("other");
    }
    return json;
}

} // namespace kx
