#include "kxpanel/line/cycle/cycle_words.h"

#include "kxpanel/exchanges/exchange_words.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

struct Words {
    Q_DECLARE_TR_FUNCTIONS(kxpanel::CycleWords)
};

QString percent(qint64 part, qint64 all)
{
    const double share = all > 0 ? 100 * static_cast<double>(part) / static_cast<double>(all) : 0;
    return QString::number(share, 'f', 1);
}

QString stretches(const LineRecord& record, qint64 place)
{
    const ExchangeTimes& times = record.mark(place).times;
    const Exchange& exchange = record.history().at(place);
    QStringList texts;
    if (times.requestEnded > times.sent)
        texts << Words::tr("sent in %1").arg(timeWords(times.requestEnded - times.sent));
    if (exchange.turnaround < 0)
        texts << Words::tr("waited %1").arg(timeWords(times.replyEnded - times.requestEnded));
    else
        texts
            << Words::tr("answered after %1").arg(timeWords(times.replyBegan - times.requestEnded));
    if (exchange.turnaround < 0 && !exchange.reply.isEmpty())
        texts << Words::tr("%n byte(s) came", nullptr, static_cast<int>(exchange.reply.size()));
    else if (times.replyEnded > times.replyBegan)
        texts << Words::tr("received in %1").arg(timeWords(times.replyEnded - times.replyBegan));
    if (record.history().has(place + 1)) {
        const qint64 silence = record.mark(place + 1).times.sent - times.replyEnded;
        texts << Words::tr("then %1 of silence").arg(timeWords(qMax(silence, qint64(0))));
    }
    return texts.join(QStringLiteral(", "));
}

} // namespace

QString exchangeWords(const LineRecord& record, qint64 place)
{
    const Exchange& exchange = record.history().at(place);
    QStringList parts = {Words::tr("%1, station %2: %3")
                             .arg(timeOfDay(exchange.sentAt))
                             .arg(stationOf(exchange))
                             .arg(requestWords(exchange)),
                         stretches(record, place), exchange.outcome};
    if (exchange.wasRepeated)
        parts << Words::tr("sent before");
    if (record.mark(place).isLate)
        parts << Words::tr("late");
    return parts.join(QStringLiteral("; "));
}

QString sharesWords(const LineShares& shares)
{
    const qint64 all = shares.all();
    return Words::tr("Line used %1 %: sent %2 %, waited %3 %, received %4 %, silence %5 %")
        .arg(percent(shares.sending + shares.receiving, all), percent(shares.sending, all),
             percent(shares.waiting, all), percent(shares.receiving, all),
             percent(shares.silence, all));
}

QString networkSharesWords(const LineShares& shares)
{
    const qint64 waited = shares.all() - shares.silence;
    return Words::tr("Waited for replies %1 %, silence %2 %")
        .arg(percent(waited, shares.all()), percent(shares.silence, shares.all()));
}

} // namespace kxpanel
