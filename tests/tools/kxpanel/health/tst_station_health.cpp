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
    void faultsOfTheLine();
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

void StationHealthTest::faultsOfTheLine()
{
    kx::Statistics begin;
    begin.requests = 10;
    begin.thrownAway.foreign = 1;
    begin.thrownAway.late = 2;
    begin.thrownAway.duplicates = 3;
    begin.thrownAway.echoes = 4;
    begin.thrownAway.bytes = 5;
    begin.heldBack = 6;
    begin.reopened = 7;
    kx::Statistics now;
    now.requests = 10;
    now.thrownAway.foreign = 11;
    now.thrownAway.late = 22;
    now.thrownAway.duplicates = 33;
    now.thrownAway.echoes = 44;
    now.thrownAway.bytes = 55;
    now.heldBack = 66;
    now.reopened = 77;
    const LineFaults faults = faultsSince(begin, now);
    QCOMPARE(faults.thrownAway.foreign, qint64(10));
    QCOMPARE(faults.thrownAway.late, qint64(20));
    QCOMPARE(faults.thrownAway.duplicates, qint64(30));
    QCOMPARE(faults.thrownAway.echoes, qint64(40));
    QCOMPARE(faults.thrownAway.bytes, qint64(50));
    QCOMPARE(faults.heldBack, qint64(60));
    QCOMPARE(faults.reopened, qint64(70));
}

QTEST_GUILESS_MAIN(StationHealthTest)

#include "tst_station_health.moc"
