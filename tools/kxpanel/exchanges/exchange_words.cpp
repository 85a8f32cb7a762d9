#include "kxpanel/exchanges/exchange_words.h"

#include "listen/frame_shape.h"
#include "listen/heard_text.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::ExchangeWords)
};

kx::HeardExchange heardOf(const Exchange& exchange, bool withReply)
{
    kx::HeardExchange heard;
    heard.kind = withReply ? kx::HeardKind::Answered : kx::HeardKind::Open;
    heard.request.bytes = exchange.request;
    if (withReply)
        heard.reply.bytes = exchange.reply;
    return heard;
}

QString valueWords(const Exchange& exchange)
{
    QStringList texts;
    for (const kx::HeardRange& range : kx::rangesOf(heardOf(exchange, true)))
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
    return exchange.request.isEmpty() ? QString() : kx::actionText(heardOf(exchange, false));
}

QString replyWords(const Exchange& exchange)
{
    if (exchange.replyKind == kx::ReplyKind::Exception)
        return exchange.reason;
    if (exchange.reply.isEmpty())
        return QString();
    // Where replies of other requests came as well, which bytes are the values is not told.
    if (exchange.replyKind != kx::ReplyKind::Good || bytesBeforeAnswer(exchange) != 0)
        return Words::tr("%n byte(s)", nullptr, static_cast<int>(exchange.reply.size()));
    return kx::actionOf(exchange.request) == kx::HeardAction::Write ? Words::tr("confirmed")
                                                                    : valueWords(exchange);
}

int bytesBeforeAnswer(const Exchange& exchange)
{
    const int size = static_cast<int>(exchange.reply.size());
    for (int before = 0; before < size; ++before) {
        if (kx::answerLength(exchange.request, exchange.reply.mid(before)) == size - before)
            return before;
    }
    return -1;
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
