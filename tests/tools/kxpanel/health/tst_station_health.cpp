#include "kxpanel/health/station_health.h"

#include "../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

class StationHealthTest : public QObject
{
    Q_OBJECT

private slots:
    void counts();
    void silence();
    void aGatewaysExcuseIsNoReply();
    void whatIsNotTheStationsFault();
};

void StationHealthTest::counts()
{
    StationHealth station;
    for (const Exchange& exchange :
         {answeredPoll(), answeredPoll(), unansweredPoll(), refusedWrite()})
        station.add(exchange);
    QCOMPARE(station.counts.requests, qint64(4));
    QCOMPARE(station.counts.accepted, qint64(2));
    QCOMPARE(station.counts.repeated, qint64(1));
    QCOMPARE(station.counts.failed, qint64(1));
    QCOMPARE(station.counts.bad.none, qint64(1));
    QCOMPARE(station.counts.bad.exceptions, qint64(1));
    QCOMPARE(station.replies.count(), qint64(3)); // a refusal is a reply, too
    QCOMPARE(station.replies.longest(), qint64(5000));
    QCOMPARE(station.answeredAt, SAMPLE_TIME + 30);
}

void StationHealthTest::silence()
{
    StationHealth station;
    QVERIFY(!station.isSilent);
    station.add(unansweredPoll()); // it has another try
    QVERIFY(!station.isSilent);
    Exchange lastTry = unansweredPoll();
    lastTry.isFinal = true;
    station.add(lastTry);
    QVERIFY(station.isSilent);
    station.add(refusedWrite()); // it is there
    QVERIFY(!station.isSilent);
    station.add(lastTry);
    Exchange damaged = lastTry;
    damaged.replyKind = kx::ReplyKind::Bad;
    station.add(damaged);
    QVERIFY(!station.isSilent); // somebody sends, though nothing that can be read
}

void StationHealthTest::aGatewaysExcuseIsNoReply()
{
    Exchange excuse = refusedWrite();
    excuse.exceptionCode = 11; // the station behind the gateway did not answer
    StationHealth station;
    station.add(excuse);
    QVERIFY(station.isSilent);
    QCOMPARE(station.replies.count(), qint64(0));
    QCOMPARE(station.answeredAt, qint64(0));
    QCOMPARE(station.counts.bad.exceptions, qint64(1));
}

void StationHealthTest::whatIsNotTheStationsFault()
{
    Exchange lastTry = unansweredPoll();
    lastTry.isFinal = true;
    StationHealth station;
    station.add(lastTry);
    Exchange lost = lastTry;
    lost.replyKind = kx::ReplyKind::Lost;
    station.add(lost);
    QVERIFY(station.isSilent); // as it was before the line was lost
}

QTEST_GUILESS_MAIN(StationHealthTest)

#include "tst_station_health.moc"
