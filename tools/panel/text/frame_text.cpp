#include "panel/text/frame_text.h"

#include "addresses/request_limits.h"
#include "data/reply_handling.h"
#include "exchange/failure.h"
#include "exchange/replies/reply_verdict.h"
#include "panel/text/json_time.h"

namespace kx
{

namespace
{

const int SHORTEST_FRAME = 5; // an exception reply

struct Field {
    const char* name;
    int size; ///< bytes; 0: all but the CRC
};

const QList<Field> READ_REQUEST = {{"address", 2}, {"quantity", 2}};
const QList<Field> SINGLE_WRITE = {{"address", 2}, {"value", 2}};
const QList<Field> WRITE_REQUEST = {
    {"address", 2}, {"quantity", 2}, {"byte count", 1}, {"data", 0}};
const QList<Field> READ_REPLY = {{"byte count", 1}, {"data", 0}};
const QList<Field> EXCEPTION_REPLY = {{"exception", 1}};

int functionOf(const QByteArray& frame)
{
    return static_cast<unsigned char>(frame.at(1));
}

bool isSingleWrite(int function)
{
    return function == 5 || function == 6;
}

bool isMultipleWrite(int function)
{
    return function == 15 || function == 16;
}

QList<Field> requestFields(int function)
{
    if (isSingleWrite(function))
        return SINGLE_WRITE;
    return isMultipleWrite(function) ? WRITE_REQUEST : READ_REQUEST;
}

QList<Field> replyFields(int function)
{
    if (function & EXCEPTION_FLAG)
        return EXCEPTION_REPLY;
    if (isSingleWrite(function))
        return SINGLE_WRITE;
    return isMultipleWrite(function) ? READ_REQUEST : READ_REPLY;
}

/// The frame is at least SHORTEST_FRAME long.
QString withNames(const QByteArray& frame, const QList<Field>& fields)
{
    const int crc = static_cast<int>(frame.size()) - 2;
    QStringList parts;
    parts << QLatin1String("station ") + hexText(frame.left(1));
    parts << QLatin1String("function ") + hexText(frame.mid(1, 1));
    int position = 2;
    for (const Field& field : fields) {
        const int size = field.size == 0 ? crc - position : qMin(field.size, crc - position);
        if (size <= 0)
            break;
        parts << QStringLiteral("%1 %2").arg(QLatin1String(field.name),
                                             hexText(frame.mid(position, size)));
        position += size;
    }
    parts << QLatin1String("CRC ") + hexText(frame.mid(crc));
    return parts.join(QLatin1String(", "));
}

QString resultText(int result)
{
    switch (result) {
    case REPLY_ACCEPTED:
        return QStringLiteral("accepted");
    case REPLY_RETRY:
        return QStringLiteral("repeated");
    case REPLY_FAILED:
        return QStringLiteral("failed");
    default:
        return QStringLiteral("ignored");
    }
}

QString timeText(const QDateTime& time)
{
    return time.toLocalTime().toString(QLatin1String("HH:mm:ss.zzz"));
}

} // namespace

QString hexText(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QString requestText(const QByteArray& request)
{
    return request.size() < SHORTEST_FRAME ? hexText(request)
                                           : withNames(request, requestFields(functionOf(request)));
}

QString replyText(const QByteArray& reply)
{
    return reply.size() < SHORTEST_FRAME || !endsWithItsCrc(reply)
               ? hexText(reply)
               : withNames(reply, replyFields(functionOf(reply)));
}

QString outcomeText(const ExchangeRecord& record)
{
    QString text = reasonText(record) + QLatin1String(", ") + resultText(record.result);
    if (!record.errorText.isEmpty())
        text += QLatin1String(": ") + record.errorText;
    return text;
}

QStringList exchangeRows(const ExchangeRecord& record)
{
    QString request =
        QStringLiteral("%1 request %2").arg(timeText(record.sentAt), requestText(record.request));
    if (record.repeated)
        request += QStringLiteral(" (again)");
    QString reply = QStringLiteral("%1 reply   ").arg(timeText(record.finishedAt));
    if (!record.reply.isEmpty())
        reply += replyText(record.reply) + QLatin1String(": ");
    return {request, reply + outcomeText(record)};
}

QJsonObject exchangeJson(const ExchangeRecord& record)
{
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("exchange");
    json[QLatin1String("sent")] = jsonTime(record.sentAt);
    json[QLatin1String("finished")] = jsonTime(record.finishedAt);
    json[QLatin1String("request")] = hexText(record.request);
    json[QLatin1String("requestFields")] = requestText(record.request);
    json[QLatin1String("reply")] = hexText(record.reply);
    json[QLatin1String("replyFields")] = replyText(record.reply);
    json[QLatin1String("outcome")] = reasonText(record);
    json[QLatin1String("result")] = resultText(record.result);
    json[QLatin1String("repeated")] = record.repeated;
    return json;
}

} // namespace kx
