#include "kxpanel/line/cycle/cycle_words.h"

#include "../../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class CycleWordsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void exchanges();
    void bytesThatAreNoReply();
    void onANetwork();
    void shares();
};

void CycleWordsTest::exchanges()
{
    LineRecord record;
    QVector<Exchange> polls = answeredPolls(17);
    polls << unansweredPoll() << refusedWrite();
    polls[16].turnaround = 12000;
    polls[16].wasRepeated = true;
    for (int i = 17; i < 19; ++i) {
        polls[i].sentAt += 50 * i;
        polls[i].finishedAt += 50 * i;
    }
    for (const Exchange& exchange : polls)
        record.add(exchange, kx::LineTiming());
    QCOMPARE(exchangeWords(record, 0),
             QString("11:00:00.000, station 1: read D100:2; sent in 8.3 ms, answered after 5.0 ms, "
                     "received in 9.4 ms, then 27.3 ms of silence; good, accepted"));
    QCOMPARE(exchangeWords(record, 16),
             QString("11:00:00.800, station 1: read D100:2; sent in 8.3 ms, answered after 12.0 "
                     "ms, received in 9.4 ms, then 20.3 ms of silence; good, accepted; sent "
                     "before; late"));
    // The next one came while it still waited, by the clocks of both: until then it had the line.
    QCOMPARE(exchangeWords(record, 17),
             QString("11:00:00.850, station 1: read D100:2; sent in 8.3 ms, waited 41.7 ms, then "
                     "<0.1 ms of silence; no reply, repeated"));
    QVERIFY(exchangeWords(record, 18)
                .endsWith("received in 5.2 ms; exception 2 (illegal data "
                          "address), failed: 5,2,8,Y"));
}

void CycleWordsTest::bytesThatAreNoReply()
{
    Exchange damaged = unansweredPoll();
    damaged.reply = QByteArray(5, 'A');
    damaged.replyKind = kx::ReplyKind::Bad;
    damaged.outcome = QString("damaged reply, repeated");
    LineRecord record;
    record.add(damaged, kx::LineTiming());
    QCOMPARE(exchangeWords(record, 0),
             QString("11:00:00.000, station 1: read D100:2; sent in 8.3 ms, waited 291.7 ms, "
                     "5 byte(s) came; damaged reply, repeated"));
}

void CycleWordsTest::onANetwork()
{
    kx::LineTiming network;
    network.baud = 0;
    LineRecord record;
    record.add(answeredPoll(), network);
    QCOMPARE(exchangeWords(record, 0),
             QString("11:00:00.000, station 1: read D100:2; answered after 5.0 ms; good, "
                     "accepted"));
}

void CycleWordsTest::shares()
{
    QCOMPARE(networkSharesWords({0, 5000, 0, 35000}),
             QString("Waited for replies 12.5 %, silence 87.5 %"));
    QCOMPARE(sharesWords({8000, 5000, 9000, 18000}),
             QString("Line used 42.5 %: sent 20.0 %, waited 12.5 %, received 22.5 %, silence "
                     "45.0 %"));
    QCOMPARE(sharesWords({}), QString("Line used 0.0 %: sent 0.0 %, waited 0.0 %, received 0.0 %, "
                                      "silence 0.0 %"));
}

QTEST_GUILESS_MAIN(CycleWordsTest)

#include "tst_cycle_words.moc"
