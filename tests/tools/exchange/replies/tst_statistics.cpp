#include "exchange/replies/statistics.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kx;

Q_DECLARE_METATYPE(qint64*)

class StatisticsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyExchangeIsOneOfThree();
    void everyBadReplyIsCountedByItsKind_data();
    void everyBadReplyIsCountedByItsKind();
    void figures();
    void noTimePassed();
    void aRunShorterThanItsCharactersTake();
    void loadIsNeverMoreThanTheWholeTime();
};

namespace
{

BadReplies bad; // what the rows of a table point into

ExchangeRecord record(ReplyKind kind, int result, int sent, int received)
{
    ExchangeRecord record;
    record.replyKind = kind;
    record.result = result;
    record.request = QByteArray(sent, '\0');
    record.reply = QByteArray(received, '\0');
    return record;
}

} // namespace

void StatisticsTest::everyExchangeIsOneOfThree()
{
    Statistics statistics;
    statistics.add(record(ReplyKind::Good, 1, 8, 9));
    statistics.add(record(ReplyKind::None, 8, 8, 0));
    statistics.add(record(ReplyKind::Exception, 8, 8, 5));
    statistics.add(record(ReplyKind::Exception, 2, 8, 5));
    statistics.add(record(ReplyKind::Foreign, 8, 8, 14));
    statistics.add(record(ReplyKind::NotSent, 2, 0, 0));
    QCOMPARE(statistics.requests, qint64(5));
    QCOMPARE(statistics.accepted, qint64(1));
    QCOMPARE(statistics.repeated, qint64(3));
    QCOMPARE(statistics.failed, qint64(1));
    QCOMPARE(statistics.bad.exceptions, qint64(2));
    QCOMPARE(statistics.bad.none, qint64(1));
    QCOMPARE(statistics.bad.foreign, qint64(1));
    QCOMPARE(statistics.bad.sum(), qint64(4));
    QCOMPARE(statistics.notSent, qint64(1));
    QCOMPARE(statistics.bytesSent, qint64(40));
    QCOMPARE(statistics.bytesReceived, qint64(33));
}

void StatisticsTest::everyBadReplyIsCountedByItsKind_data()
{
    QTest::addColumn<ReplyKind>("kind");
    QTest::addColumn<qint64*>("count");
    const auto row = [](const char* name, ReplyKind kind, qint64 BadReplies::*member) {
        QTest::newRow(name) << kind << &(bad.*member);
    };
    row("none", ReplyKind::None, &BadReplies::none);
    row("short", ReplyKind::Short, &BadReplies::incomplete);
    row("bad", ReplyKind::Bad, &BadReplies::damaged);
    row("exception", ReplyKind::Exception, &BadReplies::exceptions);
    row("foreign", ReplyKind::Foreign, &BadReplies::foreign);
    row("miscounted", ReplyKind::WrongByteCount, &BadReplies::byteCounts);
    row("lost", ReplyKind::Lost, &BadReplies::lost);
    row("broadcast", ReplyKind::Broadcast, &BadReplies::broadcasts);
    row("line never silent", ReplyKind::NeverSilent, &BadReplies::neverSilent);
    row("good, not taken", ReplyKind::Good, &BadReplies::ignored);
}

void StatisticsTest::everyBadReplyIsCountedByItsKind()
{
    QFETCH(ReplyKind, kind);
    QFETCH(qint64*, count);
    Statistics statistics;
    statistics.add(record(kind, 8, 8, 0));
    statistics.add(record(kind, 2, 8, 0));
    statistics.add(record(kind, 0, 8, 0));
    bad = statistics.bad;
    QCOMPARE(*count, qint64(3));
    QCOMPARE(bad.sum(), qint64(3));
}

void StatisticsTest::figures()
{
    Statistics statistics;
    statistics.requests = 30;
    statistics.bytesSent = 240;
    statistics.bytesReceived = 240;
    QCOMPARE(statistics.requestsPerSecond({9600, 8, 0, 1}, 2000), 15.0);
    // 480 characters of 10 bits at 9600 baud: half a second of two.
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 2000), 0.25);
    // 12 bits each: 0.6 of two seconds.
    QCOMPARE(statistics.lineLoad({9600, 8, 1, 2}, 2000), 0.3);
    QCOMPARE(statistics.lineLoad({0, 8, 0, 1}, 2000), 0.0);
}

void StatisticsTest::noTimePassed()
{
    Statistics statistics;
    QCOMPARE(statistics.requestsPerSecond({9600, 8, 0, 1}, 0), 0.0);
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 0), 0.0);
    statistics.add(record(ReplyKind::Good, 1, 8, 9)); // on a network
    QCOMPARE(statistics.requestsPerSecond({0, 8, 0, 1}, 0), 0.0);
    QCOMPARE(statistics.lineLoad({0, 8, 0, 1}, 0), 0.0);
}

// As on a pseudo-terminal, which carries the last reply in no time.
void StatisticsTest::aRunShorterThanItsCharactersTake()
{
    Statistics statistics;
    statistics.add(record(ReplyKind::Good, 1, 8, 1));
    statistics.add(record(ReplyKind::Good, 1, 8, 1));
    // 18 characters of 1 ms each, and twice a silence of 3.5 of them.
    const LineTiming millisecondEach{10000, 8, 0, 1};
    QCOMPARE(statistics.requestsPerSecond(millisecondEach, 0), 80.0);
    QCOMPARE(statistics.requestsPerSecond(millisecondEach, 24), 80.0);
    QCOMPARE(statistics.requestsPerSecond(millisecondEach, 50), 40.0);
    QCOMPARE(statistics.lineLoad(millisecondEach, 0), 0.72);
    QCOMPARE(statistics.lineLoad(millisecondEach, 24), 0.72);
    QCOMPARE(statistics.lineLoad(millisecondEach, 50), 0.36);
    QCOMPARE(statistics.requestsPerSecond({0, 8, 0, 1}, 10), 200.0); // a network is that fast
}

void StatisticsTest::loadIsNeverMoreThanTheWholeTime()
{
    Statistics statistics;
    statistics.bytesSent = 9600;
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 10), 1.0);
}

QTEST_GUILESS_MAIN(StatisticsTest)
#include "tst_statistics.moc"
