#include "kxpanel/line/cycle/measured_cycle.h"

#include "../../sample_exchanges.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

/// Of cycles of one poll each that begin at these milliseconds.
qint64 averageOf(const QVector<int>& begins)
{
    MeasuredCycle cycle;
    for (const int begin : begins) {
        Exchange poll = answeredPolls(1).first();
        poll.sentAt += begin;
        cycle.add(poll);
    }
    return cycle.average();
}

} // namespace

class MeasuredCycleTest : public QObject
{
    Q_OBJECT

private slots:
    void average_data();
    void average();
    void quickCyclesAreAveragedOverTwoSeconds();
    void forgets();
};

void MeasuredCycleTest::average_data()
{
    QTest::addColumn<QVector<int>>("begins"); // milliseconds
    QTest::addColumn<qint64>("average");      // microseconds
    QTest::newRow("nothing") << QVector<int>() << qint64(0);
    QTest::newRow("none is over") << QVector<int>({0}) << qint64(0);
    QTest::newRow("one") << QVector<int>({0, 5000}) << qint64(5000000);
    QTest::newRow("the latest three")
        << QVector<int>({0, 9000, 10000, 11000, 12500}) << qint64(1166666);
    QTest::newRow("all of two seconds")
        << QVector<int>({0, 500, 1000, 1500, 1900, 2400}) << qint64(480000);
    QTest::newRow("the clock was put back")
        << QVector<int>({9000, 10000, 400, 500}) << qint64(100000);
}

void MeasuredCycleTest::average()
{
    QFETCH(QVector<int>, begins);
    QTEST(averageOf(begins), "average");
}

void MeasuredCycleTest::quickCyclesAreAveragedOverTwoSeconds()
{
    QVector<int> begins;
    for (int i = 0; i < 3000; ++i)
        begins << i * 7 / 2; // 3.5 ms, of which the clock tells 3 and 4
    QVERIFY(qAbs(averageOf(begins) - 3500) <= 1);
}

void MeasuredCycleTest::forgets()
{
    MeasuredCycle cycle;
    const QVector<Exchange> polls = answeredPolls(6);
    cycle.add(polls[0]);
    cycle.add(polls[1]);
    QCOMPARE(cycle.average(), qint64(50000));
    cycle.forget();
    QCOMPARE(cycle.average(), qint64(0));
    cycle.add(polls[2]); // which ends one that had begun before
    cycle.add(polls[3]);
    QCOMPARE(cycle.average(), qint64(0));
    cycle.add(polls[4]);
    QCOMPARE(cycle.average(), qint64(50000));
    cycle.clear();
    QCOMPARE(cycle.average(), qint64(0));
    cycle.add(polls[4]); // the first of another line
    cycle.add(polls[5]);
    QCOMPARE(cycle.average(), qint64(50000));
}

QTEST_GUILESS_MAIN(MeasuredCycleTest)

#include "tst_measured_cycle.moc"
