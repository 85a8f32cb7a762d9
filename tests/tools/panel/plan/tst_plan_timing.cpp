// How long requests take on a line. 8N1 is 10 bits per character, 8E1 is 11.

#include "panel/plan/plan_timing.h"

#include <QtTest/QTest>

using namespace kx;

class PlanTimingTest : public QObject
{
    Q_OBJECT

private slots:
    void oneExchangeTakes_data();
    void oneExchangeTakes();
    void aStationThatWasSeenToAnswerBeforeTheGap();
    void everyRequestOfACycleWaits();
    void theLineLoadIsTheShareOfBusyTime();
};

void PlanTimingTest::oneExchangeTakes_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("parityBits");
    QTest::addColumn<qint64>("turnaround");
    QTest::addColumn<qint64>("busy");
    QTest::addColumn<qint64>("duration");
    // 33 characters are 330 bits = 34375 us, the gap is 35 bits = 3646 us.
    QTest::newRow("9600 baud, 8N1")
        << 9600 << 0 << qint64(5000) << qint64(34375) << qint64(34375 + 5000 + 3646);
    QTest::newRow("a station cannot answer before the frame gap")
        << 9600 << 0 << qint64(0) << qint64(34375) << qint64(34375 + 3646 + 3646);
    QTest::newRow("a turnaround of just the gap")
        << 9600 << 0 << qint64(3646) << qint64(34375) << qint64(34375 + 3646 + 3646);
    // 363 bits = 18907 us, the gap is 38.5 bits = 2006 us.
    QTest::newRow("19200 baud, 8E1")
        << 19200 << 1 << qint64(5000) << qint64(18907) << qint64(18907 + 5000 + 2006);
    // 330 bits = 2865 us; the gap is 1750 us above 19200 baud.
    QTest::newRow("115200 baud, 8N1")
        << 115200 << 0 << qint64(0) << qint64(2865) << qint64(2865 + 1750 + 1750);
    QTest::newRow("a network") << 0 << 0 << qint64(5000) << qint64(0) << qint64(5000);
}

void PlanTimingTest::oneExchangeTakes()
{
    QFETCH(int, baud);
    QFETCH(int, parityBits);
    QFETCH(qint64, turnaround);
    PlanTiming timing;
    timing.line.baud = baud;
    timing.line.parityBits = parityBits;
    timing.turnaround = turnaround;
    const CycleCost cost = costOf(timing, 1, 8, 25);
    QTEST(cost.busy, "busy");
    QTEST(cost.duration, "duration");
    QCOMPARE(cost.requests, 1);
    QCOMPARE(cost.bytesSent, qint64(8));
    QCOMPARE(cost.bytesExpected, qint64(25));
}

void PlanTimingTest::aStationThatWasSeenToAnswerBeforeTheGap()
{
    ReadRules rules; // 9600 baud, 8N1
    rules.stations[2].turnaround = 800;
    rules.stations[3].turnaround = 800;
    rules.stations[3].isMeasured = true;
    QCOMPARE(timingAt(1, rules).wait(), qint64(5000)); // as usual
    QCOMPARE(timingAt(2, rules).wait(), qint64(3646));
    QCOMPARE(timingAt(3, rules).wait(), qint64(800));
    QCOMPARE(costOf(timingAt(3, rules), 1, 8, 25).duration, qint64(34375 + 800 + 3646));
}

void PlanTimingTest::everyRequestOfACycleWaits()
{
    // 47 characters are 470 bits = 48959 us.
    const CycleCost cycle = costOf(PlanTiming(), 2, 16, 31);
    QCOMPARE(cycle.requests, 2);
    QCOMPARE(cycle.bytesSent, qint64(16));
    QCOMPARE(cycle.bytesExpected, qint64(31));
    QCOMPARE(cycle.busy, qint64(48959));
    QCOMPARE(cycle.duration, qint64(48959 + 2 * (5000 + 3646)));
}

void PlanTimingTest::theLineLoadIsTheShareOfBusyTime()
{
    CycleCost cost;
    QCOMPARE(cost.lineLoad(), 0.0);
    cost.busy = 250;
    cost.duration = 1000;
    QCOMPARE(cost.lineLoad(), 0.25);
}

QTEST_APPLESS_MAIN(PlanTimingTest)
#include "tst_plan_timing.moc"
