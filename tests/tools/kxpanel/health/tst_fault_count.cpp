#include "kxpanel/health/fault_count.h"

#include <QtTest/QTest>

using namespace kxpanel;

class FaultCountTest : public QObject
{
    Q_OBJECT

private slots:
    void countsSinceItWasReset();
    void addsRunsUp();
    void aRunMayBeginWithMore();

private:
    static kx::WatchSummary summary(qint64 elapsed, qint64 bytes);
};

kx::WatchSummary FaultCountTest::summary(qint64 elapsed, qint64 bytes)
{
    kx::WatchSummary summary;
    summary.elapsed = elapsed;
    summary.statistics.thrownAway.bytes = bytes;
    return summary;
}

void FaultCountTest::countsSinceItWasReset()
{
    kx::WatchSummary begin;
    kx::WatchSummary now;
    kx::ThrownAway& before = begin.statistics.thrownAway;
    kx::ThrownAway& after = now.statistics.thrownAway;
    before.foreign = 1;
    after.foreign = 11;
    before.late = 2;
    after.late = 22;
    before.duplicates = 3;
    after.duplicates = 33;
    before.echoes = 4;
    after.echoes = 44;
    before.bytes = 5;
    after.bytes = 55;
    begin.statistics.heldBack = 6;
    now.statistics.heldBack = 66;
    begin.statistics.reopened = 7;
    now.statistics.reopened = 77;
    begin.missed = 8;
    now.missed = 88;
    FaultCount count;
    count.take(begin);
    count.reset();
    count.take(now);
    const LineFaults faults = count.faults();
    QCOMPARE(faults.thrownAway.foreign, qint64(10));
    QCOMPARE(faults.thrownAway.late, qint64(20));
    QCOMPARE(faults.thrownAway.duplicates, qint64(30));
    QCOMPARE(faults.thrownAway.echoes, qint64(40));
    QCOMPARE(faults.thrownAway.bytes, qint64(50));
    QCOMPARE(faults.heldBack, qint64(60));
    QCOMPARE(faults.reopened, qint64(70));
    QCOMPARE(faults.missed, qint64(80));
}

void FaultCountTest::addsRunsUp()
{
    FaultCount count;
    count.take(summary(500, 3));
    count.take(summary(1000, 14));
    count.take(summary(500, 2)); // another run, as after other limits were applied
    QCOMPARE(count.faults().thrownAway.bytes, qint64(16));
    count.take(summary(1000, 5));
    QCOMPARE(count.faults().thrownAway.bytes, qint64(19));
    count.reset();
    count.take(summary(1500, 6));
    QCOMPARE(count.faults().thrownAway.bytes, qint64(1));
    count.take(summary(500, 4));
    QCOMPARE(count.faults().thrownAway.bytes, qint64(5));
}

void FaultCountTest::aRunMayBeginWithMore()
{
    FaultCount count;
    count.take(summary(200, 1));
    count.endRun();
    count.take(summary(500, 4));
    QCOMPARE(count.faults().thrownAway.bytes, qint64(5));
    count.take(summary(1000, 6)); // the same run
    QCOMPARE(count.faults().thrownAway.bytes, qint64(7));
}

QTEST_GUILESS_MAIN(FaultCountTest)

#include "tst_fault_count.moc"
