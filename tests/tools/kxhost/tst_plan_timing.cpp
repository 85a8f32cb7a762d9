// How long requests take on a line. 8N1 is 10 bits per character, 8E1 is 11.

#include "kxhost/plan_timing.h"

#include <QtTest/QtTest>

class TestPlanTiming : public QObject
{
    Q_OBJECT

private slots:
    void oneExchangeTakes_data();
    void oneExchangeTakes();
    void costsOfACycleAddUp();
    void theLineLoadIsTheShareOfBusyTime();
};

void TestPlanTiming::oneExchangeTakes_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("parityBits");
    QTest::addColumn<qint64>("turnaround");
    QTest::addColumn<qint64>("busy");
    QTest::addColumn<qint64>("duration");
    // Request 80 bits = 8334 us, reply 250 bits = 26042 us, gap 35 bits = 3646 us.
    QTest::newRow("9600 baud, 8N1")
        << 9600 << 0 << qint64(5000) << qint64(34376) << qint64(8334 + 5000 + 26042 + 3646);
    QTest::newRow("a station cannot answer before the frame gap")
        << 9600 << 0 << qint64(0) << qint64(34376) << qint64(8334 + 3646 + 26042 + 3646);
    QTest::newRow("a turnaround of just the gap")
        << 9600 << 0 << qint64(3646) << qint64(34376) << qint64(8334 + 3646 + 26042 + 3646);
    // 88 bits = 4584 us, 275 bits = 14323 us, gap 38.5 bits = 2006 us.
    QTest::newRow("19200 baud, 8E1")
        << 19200 << 1 << qint64(5000) << qint64(18907) << qint64(4584 + 5000 + 14323 + 2006);
    // 80 bits = 695 us, 250 bits = 2171 us; the gap is 1750 us above 19200 baud.
    QTest::newRow("115200 baud, 8N1")
        << 115200 << 0 << qint64(0) << qint64(2866) << qint64(695 + 1750 + 2171 + 1750);
    QTest::newRow("a network") << 0 << 0 << qint64(5000) << qint64(0) << qint64(5000);
}

void TestPlanTiming::oneExchangeTakes()
{
    QFETCH(int, baud);
    QFETCH(int, parityBits);
    QFETCH(qint64, turnaround);
    PlanTiming timing;
    timing.line.baud = baud;
    timing.line.parityBits = parityBits;
    timing.turnaround = turnaround;
    const CycleCost cost = exchangeCost(timing, 8, 25);
    QTEST(cost.busy, "busy");
    QTEST(cost.duration, "duration");
    QCOMPARE(cost.requests, 1);
    QCOMPARE(cost.bytesSent, qint64(8));
    QCOMPARE(cost.bytesExpected, qint64(25));
}

void TestPlanTiming::costsOfACycleAddUp()
{
    const PlanTiming timing;
    CycleCost cycle;
    cycle += exchangeCost(timing, 8, 25);
    cycle += exchangeCost(timing, 8, 6); // reply 60 bits = 6250 us
    QCOMPARE(cycle.requests, 2);
    QCOMPARE(cycle.bytesSent, qint64(16));
    QCOMPARE(cycle.bytesExpected, qint64(31));
    QCOMPARE(cycle.busy, qint64(8334 + 26042 + 8334 + 6250));
    QCOMPARE(cycle.duration, qint64(8334 + 26042 + 8334 + 6250 + 2 * (5000 + 3646)));
}

void TestPlanTiming::theLineLoadIsTheShareOfBusyTime()
{
    CycleCost cost;
    QCOMPARE(cost.lineLoad(), 0.0);
    cost.busy = 250;
    cost.duration = 1000;
    QCOMPARE(cost.lineLoad(), 0.25);
}

QTEST_APPLESS_MAIN(TestPlanTiming)
#include "tst_plan_timing.moc"
