#include "listen/heard_text.h"

#include "exchange/failure.h"
#include "exchange/replies/reply_verdict.h"
#include "listen/frame_shape.h"
#include "listen/heard_values.h"
#include "panel/text/counted.h"
#include "panel/text/frame_text.h"
#include "panel/text/json_time.h"
#include "system/translated_text.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

const int BITS_PER_GROUP = 8;

QString rangeText(const HeardRange& range)
{
    QString text = range.first;
    if (range.count != 1)
        text += QStringLiteral(":%1").arg(range.count);
    if (!range.values.isEmpty())
        text += QLatin1String(" = ") + valuesText(range);
    return text;
}

/// What became of a request; empty when it was answered.
QString outcomeText(const HeardExchange& exchange)
{
    switch (exchange.kind) {
    case HeardKind::Refused:
        return exceptionText(exceptionCodeOf(exchange.reply.bytes));
    case HeardKind::Unfitting:
        return QStringLiteral("wrong byte count");
    case HeardKind::Damaged:
        return QStringLiteral("damaged reply");
    case HeardKind::Unanswered:
        return QStringLiteral("no reply");
    case HeardKind::Broadcast:
        return QStringLiteral("broadcast");
    case HeardKind::Open:
        return QStringLiteral("still open");
    default:
        return QString();
    }
}

QString withoutRequest(const HeardExchange& exchange)
{
    const QByteArray& bytes = exchange.reply.bytes;
    if (exchange.kind == HeardKind::Noise)
        return QStringLiteral("%1 in no frame: %2")
            .arg(counted(bytes.size(), "byte", "bytes"), hexText(bytes));
    return QStringLiteral("%1 reply without its request: %2")
        .arg(QString::number(stationOf(bytes)), replyText(bytes));
}

const char* kindName(HeardKind kind)
{
    switch (kind) {
    case HeardKind::Answered:
        return "answered";
    case HeardKind::Refused:
        return "refused";
    case HeardKind::Unfitting:
        return "wrong byte count";
    case HeardKind::Damaged:
        return "damaged reply";
    case HeardKind::Unanswered:
        return "no reply";
    case HeardKind::Broadcast:
        return "broadcast";
    case HeardKind::Open:
        return "still open";
    case HeardKind::Stray:
        return "reply without its request";
    case HeardKind::Noise:
        break;
    }
    return "bytes in no frame";
}

QJsonArray rangesJson(const HeardExchange& exchange)
{
    QJsonArray json;
    for (const HeardRange& range : rangesOf(exchange)) {
        QJsonObject object{{QStringLiteral("first"), range.first},
                           {QStringLiteral("count"), range.count}};
        QJsonArray values;
        for (const qint64 value : range.values)
            values << value;
        if (!values.isEmpty())
            object[QStringLiteral("values")] = values;
        json << object;
    }
    return json;
}

void addRequest(const HeardExchange& exchange, QJsonObject* json)
{
    const QByteArray& request = exchange.request.bytes;
    const HeardAction action = actionOf(request);
    (*json)[QStringLiteral("station")] = stationOf(request);
    (*json)[QStringLiteral("function")] = functionOf(request);
    if (action != HeardAction::Other)
        (*json)[QLatin1String(action == HeardAction::Read ? "read" : "write")] =
            rangesJson(exchange);
    (*json)[QStringLiteral("request")] = hexText(request);
    if (exchange.kind == HeardKind::Refused)
        (*json)[QStringLiteral("exception")] = exceptionCodeOf(exchange.reply.bytes);
    if (exchange.responseTime() >= 0)
        (*json)[QStringLiteral("responseUs")] = exchange.responseTime();
}

} // namespace

QString valuesText(const HeardRange& range)
{
    QString text;
    for (int i = 0; i < static_cast<int>(range.values.size()); ++i) {
        if (i > 0 && (!range.isBits || i % BITS_PER_GROUP == 0))
            text += QLatin1Char(' ');
        text += QString::number(range.values.at(i));
    }
    return text;
}

QString actionText(const HeardExchange& exchange)
{
    const HeardAction action = actionOf(exchange.request.bytes);
    if (action == HeardAction::Other)
        return Text::tr("function %1").arg(functionOf(exchange.request.bytes));
    QStringList ranges;
    for (const HeardRange& range : rangesOf(exchange))
        ranges << rangeText(range);
    if (ranges.isEmpty())
        return action == HeardAction::Read ? Text::tr("read nothing") : Text::tr("write nothing");
    return (action == HeardAction::Read ? Text::tr("read %1") : Text::tr("write %1"))
        .arg(ranges.join(QLatin1String(", ")));
}

QString millisecondsText(qint64 microseconds)
{
    return QString::number(static_cast<double>(microseconds) / 1000, 'f', 1);
}

qint64 heardAt(const HeardExchange& exchange)
{
    return exchange.hasRequest() ? exchange.request.lastRead : exchange.reply.firstRead;
}

QString heardRow(const HeardExchange& exchange, const QDateTime& time)
{
    const QString stamp = time.toString(Qt::ISODateWithMs) + QLatin1Char(' ');
    if (!exchange.hasRequest())
        return stamp + withoutRequest(exchange);
    const QString outcome = outcomeText(exchange);
    QString row = stamp + QString::number(stationOf(exchange.request.bytes)) + QLatin1Char(' ')
                  + actionText(exchange);
    if (!outcome.isEmpty())
        row += QLatin1String(": ") + outcome;
    if (exchange.responseTime() >= 0)
        row +=
            QLatin1String(", ") + millisecondsText(exchange.responseTime()) + QLatin1String(" ms");
    return row;
}

QStringList heardFrames(const HeardExchange& exchange)
{
    QStringList rows;
    if (exchange.hasRequest())
        rows << QLatin1String("  request ") + requestText(exchange.request.bytes);
    if (exchange.hasRequest() && exchange.hasReply())
        rows << QLatin1String("  reply   ") + replyText(exchange.reply.bytes);
    return rows;
}

QJsonObject heardJson(const HeardExchange& exchange, const QDateTime& time)
{
    QJsonObject json{{QStringLiteral("event"), QStringLiteral("heard")},
                     {QStringLiteral("time"), jsonTime(time)},
                     {QStringLiteral("outcome"), QLatin1String(kindName(exchange.kind))}};
    if (exchange.hasRequest())
        addRequest(exchange, &json);
    if (exchange.kind == HeardKind::Stray)
        json[QStringLiteral("station")] = stationOf(exchange.reply.bytes);
    if (exchange.hasReply())
        json[QLatin1String(exchange.kind == HeardKind::Noise ? "bytes" : "reply")] =
            hexText(exchange.reply.bytes);
    return json;
}

} // namespace kx
