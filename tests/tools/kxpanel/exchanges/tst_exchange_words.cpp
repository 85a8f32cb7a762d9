#include "kxpanel/exchanges/exchange_words.h"

#include "../sample_exchanges.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

using namespace kxpanel;

class ExchangeWordsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "CET-1"); }
    void requestsAndReplies_data();
    void requestsAndReplies();
    void stations();
    void kinds();
    void times();
};

void ExchangeWordsTest::requestsAndReplies_data()
{
    QTest::addColumn<Exchange>("exchange");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("reply");
    const auto row = [](const char* name, const Exchange& exchange, const char* request,
                        const char* reply) {
        QTest::newRow(name) << exchange << QString(request) << QString(reply);
    };
    row("registers", answeredPoll(), "read D100:2", "1234 17");
    row("nothing came", unansweredPoll(), "read D100:2", "");
    row("refused", refusedWrite(), "write Y10 = 1", "exception 2 (illegal data address)");
    Exchange bits = answeredPoll();
    bits.request = bytes("01 01 07 D0 00 0A BC 80"); // ten coils from M0 on
    bits.reply = bytes("01 01 02 0D 03 FD 6D");      // 1011 0000, 11
    row("bits", bits, "read M0:10", "10110000 11");
    Exchange written = refusedWrite();
    written.reply = written.request;
    written.replyKind = kx::ReplyKind::Good;
    row("a write", written, "write Y10 = 1", "confirmed");
    Exchange behindAnother = answeredPoll();
    behindAnother.reply.prepend(bytes("01 03 04 00 07 00 08 4A 34")); // of an earlier request
    behindAnother.foreignReplies = 1;
    row("a reply behind another's", behindAnother, "read D100:2",
        "1234 17; reply of another request, then the reply");
    Exchange echoed = answeredPoll();
    echoed.reply.prepend(echoed.request);
    row("a reply behind the echo", echoed, "read D100:2",
        "1234 17; echo of the request, then the reply");
    Exchange twice = answeredPoll();
    twice.reply += twice.reply;
    row("a reply that came twice", twice, "read D100:2",
        "1234 17; the reply, then the reply once more");
    Exchange damaged = answeredPoll();
    damaged.reply = bytes("01 03 04");
    damaged.replyKind = kx::ReplyKind::Short;
    row("cut short", damaged, "read D100:2", "cut short: 3 of 9 bytes");
    damaged.reply = bytes("01 03 04 04 D2 00 11 9B 37");
    damaged.replyKind = kx::ReplyKind::Bad;
    row("a wrong CRC", damaged, "read D100:2", "CRC 9B 37 instead of 9B 36");
    damaged.reply = bytes("02 03 04 04 D2 00 11 A8 36");
    damaged.replyKind = kx::ReplyKind::Foreign;
    damaged.foreignReplies = 1;
    row("another station's", damaged, "read D100:2", "reply of station 2");
    Exchange refusedBehindNoise = refusedWrite();
    refusedBehindNoise.reply.prepend('\x55');
    row("refused behind noise", refusedBehindNoise, "write Y10 = 1",
        "exception 2 (illegal data address); bytes in no frame (55), then the reply");
    Exchange modbusTcp = answeredPoll();
    // Transaction, protocol, length, station, function, byte count, two registers.
    modbusTcp.reply = bytes("00 01 00 00 00 07 01 03 04 04 D2 00 11");
    modbusTcp.replyKind = kx::ReplyKind::Bad;
    row("in another protocol", modbusTcp, "read D100:2", "13 byte(s)");
    Exchange notSent;
    notSent.replyKind = kx::ReplyKind::NotSent;
    row("not sent", notSent, "", "");
    Exchange other = answeredPoll();
    other.request = bytes("01 2B 0E 01 00 70 77");
    other.reply = bytes("01 2B 0E");
    other.replyKind = kx::ReplyKind::Bad;
    row("a function of no address", other, "function 43", "bytes in no frame (01 2B 0E)");
}

void ExchangeWordsTest::requestsAndReplies()
{
    QFETCH(Exchange, exchange);
    QTEST(requestWords(exchange), "request");
    QTEST(replyWords(exchange), "reply");
}

void ExchangeWordsTest::stations()
{
    QCOMPARE(stationOf(refusedWrite()), 2);
    Exchange notSent = refusedWrite();
    notSent.request.clear();
    QCOMPARE(stationOf(notSent), 2); // of its range
    QCOMPARE(stationOf(Exchange()), 0);
}

void ExchangeWordsTest::kinds()
{
    QCOMPARE(kindWords(CYCLIC_READ_JOB), QString("poll"));
    QCOMPARE(kindWords(CONDITION_READ_JOB), QString("read"));
    QCOMPARE(kindWords(WRITE_JOB), QString("write"));
    QCOMPARE(kindWords(RECIPE_WRITE_JOB), QString("recipe write"));
    QCOMPARE(kindWords(RECIPE_READ_JOB), QString("recipe read"));
    QCOMPARE(kindWords(NO_JOB), QString());
}

void ExchangeWordsTest::times()
{
    QCOMPARE(timeWords(8249), QString("8.2 ms"));
    QCOMPARE(timeWords(0), QString("<0.1 ms"));   // sooner than can be told
    QCOMPARE(timeWords(52), QString("0.052 ms")); // as on a network
    QCOMPARE(timeWords(999), QString("0.999 ms"));
    QCOMPARE(timeWords(1000), QString("1.0 ms"));
    QCOMPARE(timeWords(-1), QString(QChar(0x2013)));
    QCOMPARE(timeOfDay(SAMPLE_TIME + 7), QString("11:00:00.007"));
}

QTEST_GUILESS_MAIN(ExchangeWordsTest)

#include "tst_exchange_words.moc"
