#include "panel/text/frame_text.h"

#include "addresses/request_limits.h"
#include "data/reply_handling.h"
#include "exchange/reason_words.h"
#include "exchange/replies/reply_verdict.h"
#include "panel/text/json_time.h"
#include "panel/text/reply_faults.h"

namespace kx
{

namespace
{

const int SHORTEST_FRAME = 5; // an exception reply

struct Field {
    const char* text; ///< with a place for its bytes
    int size;         ///< bytes; 0: all but the CRC
};

const Field ADDRESS = {QT_TRANSLATE_NOOP("kx", "address %1"), 2};
const Field QUANTITY = {QT_TRANSLATE_NOOP("kx", "quantity %1"), 2};
const Field VALUE = {QT_TRANSLATE_NOOP("kx", "value %1"), 2};
const Field BYTE_COUNT = {QT_TRANSLATE_NOOP("kx", "byte count %1"), 1};
const Field DATA = {QT_TRANSLATE_NOOP("kx", "data %1"), 0};
const Field EXCEPTION = {QT_TRANSLATE_NOOP("kx", "exception %1"), 1};

const QList<Field> READ_REQUEST = {ADDRESS, QUANTITY};
const QList<Field> SINGLE_WRITE = {ADDRESS, VALUE};
const QList<Field> WRITE_REQUEST = {ADDRESS, QUANTITY, BYTE_COUNT, DATA};
const QList<Field> READ_REPLY = {BYTE_COUNT, DATA};
const QList<Field> EXCEPTION_REPLY = {EXCEPTION};

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
QString withNames(const QByteArray& frame, const QList<Field>& fields, Wording wording)
{
    const int crc = static_cast<int>(frame.size()) - 2;
    QStringList parts;
    parts << wording(QT_TRANSLATE_NOOP("kx", "station %1")).arg(hexText(frame.left(1)));
    parts << wording(QT_TRANSLATE_NOOP("kx", "function %1")).arg(hexText(frame.mid(1, 1)));
    int position = 2;
    for (const Field& field : fields) {
        const int size = field.size == 0 ? crc - position : qMin(field.size, crc - position);
        if (size <= 0)
            break;
        parts << wording(field.text).arg(hexText(frame.mid(position, size)));
        position += size;
    }
    parts << wording(QT_TRANSLATE_NOOP("kx", "CRC %1")).arg(hexText(frame.mid(crc)));
    return parts.join(QLatin1String(", "));
}

QString requestWords(const QByteArray& request, Wording wording)
{
    return request.size() < SHORTEST_FRAME
               ? hexText(request)
               : withNames(request, requestFields(functionOf(request)), wording);
}

QString replyWords(const QByteArray& reply, Wording wording)
{
    return reply.size() < SHORTEST_FRAME || !endsWithItsCrc(reply)
               ? hexText(reply)
               : withNames(reply, replyFields(functionOf(reply)), wording);
}

const char* resultName(int result)
{
    switch (result) {
    case REPLY_ACCEPTED:
        return QT_TRANSLATE_NOOP("kx", "accepted");
    case REPLY_RETRY:
        return QT_TRANSLATE_NOOP("kx", "repeated");
    case REPLY_FAILED:
        return QT_TRANSLATE_NOOP("kx", "failed");
    default:
        return QT_TRANSLATE_NOOP("kx", "ignored");
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
    return requestWords(request, forPeople);
}

QString replyText(const QByteArray& reply)
{
    return replyWords(reply, forPeople);
}

QString outcomeText(const ExchangeRecord& record)
{
    QString text =
        reasonWords(record, forPeople) + QLatin1String(", ") + forPeople(resultName(record.result));
    if (!record.errorText.isEmpty())
        text += QLatin1String(": ") + record.errorText;
    return text;
}

QStringList exchangeRows(const ExchangeRecord& record)
{
    const QString request =
        (record.repeated ? Text::tr("%1 request %2 (again)") : Text::tr("%1 request %2"))
            .arg(timeText(record.sentAt), requestText(record.request));
    QString answer = outcomeText(record);
    const QString faults = replyFaults(record, forPeople);
    if (!faults.isEmpty() && faults != reasonWords(record, forPeople))
        answer.prepend(faults + QLatin1String(": "));
    if (!record.reply.isEmpty())
        answer.prepend(replyText(record.reply) + QLatin1String(": "));
    return {request, Text::tr("%1 reply   %2").arg(timeText(record.finishedAt), answer)};
}

QJsonObject exchangeJson(const ExchangeRecord& record)
{
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("exchange");
    json[QLatin1String("sent")] = jsonTime(record.sentAt);
    json[QLatin1String("finished")] = jsonTime(record.finishedAt);
    json[QLatin1String("request")] = hexText(record.request);
    json[QLatin1String("requestFields")] = requestWords(record.request, forPrograms);
    json[QLatin1String("reply")] = hexText(record.reply);
    json[QLatin1String("replyFields")] = replyWords(record.reply, forPrograms);
    json[QLatin1String("replyFaults")] = replyFaults(record, forPrograms);
    json[QLatin1String("outcome")] = reasonWords(record, forPrograms);
    json[QLatin1String("result")] = forPrograms(resultName(record.result));
    json[QLatin1String("repeated")] = record.repeated;
    return json;
}

} // namespace kx
