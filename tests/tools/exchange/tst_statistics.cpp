#include "exchange/statistics.h"
#include "support/driver_fixture.h"

#include <QtTest/QtTest>

class StatisticsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyExchangeIsOneOfThree();
    void figures();
    void noTimePassed();
    void loadIsNeverMoreThanTheWholeTime();
};

namespace
{

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
    ExchangeRecord foreign = record(ReplyKind::Foreign, 8, 8, 14);
    foreign.foreignReplies = 2;
    statistics.add(foreign);
    statistics.add(record(ReplyKind::NotSent, 2, 0, 0));
    QCOMPARE(statistics.requests, qint64(5));
    QCOMPARE(statistics.accepted, qint64(1));
    QCOMPARE(statistics.repeated, qint64(3));
    QCOMPARE(statistics.failed, qint64(1));
    QCOMPARE(statistics.exceptions, qint64(2));
    QCOMPARE(statistics.foreign, qint64(2));
    QCOMPARE(statistics.notSent, qint64(1));
    QCOMPARE(statistics.bytesSent, qint64(40));
    QCOMPARE(statistics.bytesReceived, qint64(33));
}

void StatisticsTest::figures()
{
    Statistics statistics;
    statistics.requests = 30;
    statistics.bytesSent = 240;
    statistics.bytesReceived = 240;
    QCOMPARE(statistics.requestsPerSecond(2000), 15.0);
    // 480 characters of 10 bits at 9600 baud: half a second of two.
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 2000), 0.25);
    // 12 bits each: 0.6 of two seconds.
    QCOMPARE(statistics.lineLoad({9600, 8, 1, 2}, 2000), 0.3);
    QCOMPARE(statistics.lineLoad({0, 8, 0, 1}, 2000), 0.0);
}

void StatisticsTest::noTimePassed()
{
    Statistics statistics;
    statistics.add(record(ReplyKind::Good, 1, 8, 9));
    QCOMPARE(statistics.requestsPerSecond(0), 0.0);
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 0), 0.0);
}

void StatisticsTest::loadIsNeverMoreThanTheWholeTime()
{
    Statistics statistics;
    statistics.bytesSent = 9600;
    QCOMPARE(statistics.lineLoad({9600, 8, 0, 1}, 10), 1.0);
}

QTEST_GUILESS_MAIN(StatisticsTest)
#include "tst_statistics.moc"
