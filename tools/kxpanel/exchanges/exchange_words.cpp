#include "kxpanel/exchanges/exchange_words.h"

#include "listen/frame_shape.h"
#include "listen/heard_text.h"
#include "panel/text/reply_faults.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::ExchangeWords)
};

/// @param reply without it the request alone counts
kx::HeardExchange heardOf(const Exchange& exchange, const QByteArray& reply = QByteArray())
{
    kx::HeardExchange heard;
    heard.kind = reply.isEmpty() ? kx::HeardKind::Open : kx::HeardKind::Answered;
    heard.request.bytes = exchange.request;
    heard.reply.bytes = reply;
    return heard;
}

QString valueWords(const Exchange& exchange, const QByteArray& reply)
{
    if (kx::actionOf(exchange.request) == kx::HeardAction::Write)
        return Words::tr("confirmed");
    QStringList texts;
    for (const kx::HeardRange& range : kx::rangesOf(heardOf(exchange, reply)))
        texts << kx::valuesText(range);
    return texts.join(QLatin1String(", "));
}

} // namespace

QString kindWords(JobKind kind)
{
    switch (kind) {
    case CYCLIC_READ_JOB:
        return Words::tr("poll");
    case CONDITION_READ_JOB:
        return Words::tr("read");
    case WRITE_JOB:
        return Words::tr("write");
    case RECIPE_WRITE_JOB:
        return Words::tr("recipe write");
    case RECIPE_READ_JOB:
        return Words::tr("recipe read");
    case NO_JOB:
        break;
    }
    return QString();
}

QString requestWords(const Exchange& exchange)
{
    return exchange.request.isEmpty() ? QString() : kx::actionText(heardOf(exchange));
}

QString replyWords(const Exchange& exchange)
{
    if (exchange.reply.isEmpty())
        return exchange.replyKind == kx::ReplyKind::Exception ? exchange.reason : QString();
    const kx::ExchangeRecord record = recordOf(exchange);
    QStringList words;
    if (exchange.replyKind == kx::ReplyKind::Exception)
        words << exchange.reason;
    if (exchange.replyKind == kx::ReplyKind::Good)
        words << valueWords(exchange, kx::answerAmong(kx::partsOfReply(record)));
    words << kx::replyFaults(record, kx::forPeople);
    words.removeAll(QString());
    return words.isEmpty()
               ? Words::tr("%n byte(s)", nullptr, static_cast<int>(exchange.reply.size()))
               : words.join(QLatin1String("; "));
}

int stationOf(const Exchange& exchange)
{
    if (!exchange.request.isEmpty())
        return kx::stationOf(exchange.request);
    return qMax(exchange.range.station, 0);
}

QString timeOfDay(qint64 milliseconds)
{
    return QDateTime::fromMSecsSinceEpoch(milliseconds).toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString timeWords(qint64 microseconds)
{
    const qint64 millisecond = 1000;
    if (microseconds < 0)
        return QString(QChar(0x2013)); // en dash
    QString number = kx::millisecondsText(microseconds);
    if (microseconds == 0)
        number = QStringLiteral("<0.1"); // sooner than can be told
    else if (microseconds < millisecond)
        number = QString::number(static_cast<double>(microseconds) / 1000, 'f', 3);
    return Words::tr("%1 ms").arg(number);
}

} // namespace kxpanel
