#include "kxhost/raw/raw_text.h"

#include "addresses/request_limits.h"
#include "exchange/lines/frame_crc.h"
#include "exchange/lines/mbap_frames.h"
#include "kxhost/raw/raw_values.h"
#include "panel/text/frame_text.h"

namespace kx
{

namespace
{

QString resultName(RawResult result)
{
    switch (result) {
    case RawResult::None:
        return QStringLiteral("none");
    case RawResult::Good:
        return QStringLiteral("good");
    case RawResult::Exception:
        return QStringLiteral("exception");
    case RawResult::Other:
        return QStringLiteral("other");
    case RawResult::Damaged:
        return QStringLiteral("damaged");
    }
    return QString();
}

int byteAt(const QByteArray& bytes, int position)
{
    return static_cast<unsigned char>(bytes.at(position));
}

QString damagedText(const QByteArray& bytes)
{
    if (isMbapReply(bytes))
        return QStringLiteral("a frame of Modbus TCP; use --protocol tcp");
    if (bytes.size() < SHORTEST_RTU_FRAME)
        return QStringLiteral("no frame: too short for one");
    const QByteArray right = withCrc(bytes.left(bytes.size() - 2)).right(2);
    return QStringLiteral("no frame: CRC wrong, right would be %1").arg(hexText(right));
}

QString silenceText(const RawExchanged& exchanged)
{
    return QString::fromLatin1(isBroadcast(exchanged.request, exchanged.isTcp)
                                   ? "none; nobody answers a broadcast"
                                   : "none until the time-out");
}

QString meaning(const RawExchanged& exchanged, const RawReply& reply)
{
    if (reply.result == RawResult::Damaged)
        return damagedText(reply.frame);
    const int function = byteAt(reply.frame, 1);
    QString text = QStringLiteral("station %1, function %2 (%3), %4")
                       .arg(QString::number(byteAt(reply.frame, 0)),
                            QString::number(function & ~EXCEPTION_FLAG), functionName(function),
                            rawValuesText(exchanged.request, reply.frame));
    if (!exchanged.isTcp)
        text += QStringLiteral("; CRC right");
    if (reply.result == RawResult::Other)
        text += QStringLiteral("; not the reply to this request");
    return text;
}

} // namespace

bool isBroadcast(const QByteArray& request, bool isTcp)
{
    return !isTcp && request.at(0) == 0;
}

QStringList rawRows(const RawExchanged& exchanged)
{
    const RawReply reply = rawReplyOf(exchanged.request, exchanged.received);
    QStringList rows = {QStringLiteral("request  ") + hexText(exchanged.request)};
    if (reply.hasEcho)
        rows << QStringLiteral("echo     the request came back");
    if (reply.result == RawResult::None)
        return rows << QStringLiteral("reply    ") + silenceText(exchanged);
    rows << QStringLiteral("reply    ") + hexText(reply.frame);
    rows << QStringLiteral("         ") + meaning(exchanged, reply);
    if (!reply.behind.isEmpty())
        rows << QStringLiteral("behind   ") + hexText(reply.behind);
    rows << QStringLiteral("time     %1 ms").arg(exchanged.milliseconds);
    return rows;
}

QJsonObject rawJson(const RawExchanged& exchanged)
{
    const RawReply reply = rawReplyOf(exchanged.request, exchanged.received);
    QJsonObject json;
    if (reply.result != RawResult::None && reply.result != RawResult::Damaged) {
        const int function = byteAt(reply.frame, 1);
        json = rawValues(exchanged.request, reply.frame);
        json[QStringLiteral("station")] = byteAt(reply.frame, 0);
        json[QStringLiteral("function")] = function & ~EXCEPTION_FLAG;
        json[QStringLiteral("functionName")] = functionName(function);
    }
    json[QStringLiteral("event")] = QStringLiteral("raw");
    json[QStringLiteral("request")] = hexText(exchanged.request);
    json[QStringLiteral("echo")] = reply.hasEcho;
    json[QStringLiteral("reply")] = hexText(reply.frame);
    json[QStringLiteral("behind")] = hexText(reply.behind);
    json[QStringLiteral("outcome")] = resultName(reply.result);
    if (reply.result != RawResult::None)
        json[QStringLiteral("milliseconds")] = exchanged.milliseconds;
    if (reply.result != RawResult::None && !exchanged.isTcp)
        json[QStringLiteral("crc")] =
            reply.result == RawResult::Damaged ? QStringLiteral("wrong") : QStringLiteral("right");
    return json;
}

} // namespace kx
