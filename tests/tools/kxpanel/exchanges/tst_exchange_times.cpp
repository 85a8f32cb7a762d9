#include "kxpanel/exchanges/exchange_times.h"

#include "../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

const qint64 BEGIN = SAMPLE_TIME * 1000; // microseconds

kx::LineTiming baud(int rate)
{
    kx::LineTiming timing; // characters of 10 bits
    timing.baud = rate;
    return timing;
}

} // namespace

class ExchangeTimesTest : public QObject
{
    Q_OBJECT

private slots:
    void times_data();
    void times();
    void shares();
    void sharesOfAPart();
    void sharesOfNothing();
    void untilAnotherHasTheLine();
};

void ExchangeTimesTest::times_data()
{
    // Microseconds since BEGIN.
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<int>("rate");
    QTest::addColumn<qint64>("free");
    QTest::addColumn<QVector<qint64>>("expected");
    const auto row = [](const char* name, const Exchange& exchange, int rate, qint64 free,
                        const QVector<qint64>& expected) {
        QTest::newRow(name) << exchange << rate << free << expected;
    };
    // 8 characters of 10 bits take 8334 us, then 5000, and 9 characters 9375.
    row("answered", answeredPoll(), 9600, -20000, {0, 8334, 13334, 22709});
    row("right behind another", answeredPoll(), 9600, 400, {400, 8734, 13734, 23109});
    row("behind another that did not keep time", answeredPoll(), 9600, 1000,
        {0, 8334, 13334, 22709});
    row("nothing came", unansweredPoll(), 9600, -20000, {0, 8334, 300000, 300000});
    Exchange damaged = unansweredPoll();
    damaged.reply = answeredPoll().reply;
    damaged.replyKind = kx::ReplyKind::Bad;
    row("damaged: 9 characters came, it is not known when", damaged, 9600, -20000,
        {0, 8334, 290625, 300000});
    damaged.finishedAt = damaged.sentAt + 12;
    row("damaged, over at once", damaged, 9600, -20000, {0, 8334, 8334, 12000});
    row("on a network", answeredPoll(), 0, -20000, {0, 0, 5000, 5000});
    Exchange atOnce = answeredPoll();
    atOnce.finishedAt = atOnce.sentAt + 10; // 9375 us of it are not to be seen
    row("over before its characters could be", atOnce, 9600, -20000, {0, 8334, 13334, 22709});
    Exchange kept = unansweredPoll();
    kept.replyKind = kx::ReplyKind::NeverSilent;
    row("not transmitted", kept, 9600, -20000, {0, 0, 300000, 300000});
    Exchange backwards = unansweredPoll();
    backwards.finishedAt = backwards.sentAt - 3600000;
    row("a clock that was put back", backwards, 9600, -20000, {0, 8334, 8334, 8334});
}

void ExchangeTimesTest::times()
{
    QFETCH(Exchange, exchange);
    QFETCH(int, rate);
    QFETCH(qint64, free);
    const ExchangeTimes times = timesOf(exchange, baud(rate), BEGIN + free);
    QTEST(QVector<qint64>({times.sent - BEGIN, times.requestEnded - BEGIN, times.replyBegan - BEGIN,
                           times.replyEnded - BEGIN}),
          "expected");
}

void ExchangeTimesTest::shares()
{
    LineShares shares;
    shares.add({0, 8000, 13000, 22000}, 0, 40000);
    shares.silence = 18000;
    QCOMPARE(shares.sending, qint64(8000));
    QCOMPARE(shares.waiting, qint64(5000));
    QCOMPARE(shares.receiving, qint64(9000));
    QCOMPARE(shares.all(), qint64(40000));
    QCOMPARE(shares.used(), 0.425); // 17 of 40 ms
}

void ExchangeTimesTest::sharesOfAPart()
{
    LineShares shares;
    shares.add({0, 8000, 13000, 22000}, 6000, 14000);
    shares.add({30000, 38000, 43000, 52000}, 6000, 14000);
    QCOMPARE(shares.sending, qint64(2000));
    QCOMPARE(shares.waiting, qint64(5000));
    QCOMPARE(shares.receiving, qint64(1000));
}

void ExchangeTimesTest::sharesOfNothing()
{
    QCOMPARE(LineShares().used(), 0.0);
}

void ExchangeTimesTest::untilAnotherHasTheLine()
{
    const ExchangeTimes whole = {0, 8000, 13000, 22000};
    const ExchangeTimes cut = cutAt(whole, 15000);
    QCOMPARE(cut.requestEnded, qint64(8000));
    QCOMPARE(cut.replyBegan, qint64(13000));
    QCOMPARE(cut.replyEnded, qint64(15000));
    QCOMPARE(cutAt(whole, 5000).requestEnded, qint64(5000));
    QCOMPARE(cutAt(whole, 5000).replyEnded, qint64(5000));
    QCOMPARE(cutAt(whole, 30000).replyEnded, qint64(22000));
}

QTEST_GUILESS_MAIN(ExchangeTimesTest)

#include "tst_exchange_times.moc"
