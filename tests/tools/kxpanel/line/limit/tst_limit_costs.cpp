#include "kxpanel/line/limit/limit_costs.h"

#include "panel/plan/watch_plan.h"
#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

kx::PolledRange polled(const char* type, int address, int count)
{
    return {{findRegisterType(QString(type)), address, count, 1}, 0};
}

/// At station 1, in each cycle.
kx::PolledRange registers(int address, int count)
{
    return polled("D", address, count);
}

QMap<int, ReplyTimes> repliesOf(int station, qint64 time)
{
    QMap<int, ReplyTimes> replies;
    replies[station].add(time);
    return replies;
}

} // namespace

Q_DECLARE_METATYPE(kx::PolledRange)

class LimitCostsTest : public QObject
{
    Q_OBJECT

private slots:
    void rules();
    void allLimits();
    void stopsAtNothing();
    void beginsAnew();
    void theBestIsTheLeastTime_data();
    void theBestIsTheLeastTime();
};

void LimitCostsTest::rules()
{
    QMap<int, ReplyTimes> replies = repliesOf(3, 1200);
    replies.insert(4, ReplyTimes()); // it has not answered
    const kx::ReadRules rules = limitedRules(10, kx::LineTiming(), replies);
    QCOMPARE(rules.usual.maxWords, 10);
    QCOMPARE(rules.usual.maxBits, 160);
    QCOMPARE(rules.of(3).turnaround, qint64(1200));
    QCOMPARE(rules.of(3).maxWords, 10);
    QCOMPARE(rules.of(4).turnaround, qint64(5000));
    QCOMPARE(bitsFor(125), 2000); // as many as Modbus allows
}

void LimitCostsTest::allLimits()
{
    LimitCosts costs;
    QSignalSpy advanced(&costs, &LimitCosts::advanced);
    costs.start({registers(100, 40)}, kx::LineTiming(), {});
    QVERIFY(!costs.isFinished());
    QTRY_VERIFY(costs.isFinished());
    QVERIFY(advanced.count() >= 2);
    QCOMPARE(costs.results().size(), 125);
    QCOMPARE(costs.of(1)->cost.requests, 40);
    QCOMPARE(costs.of(20)->cost.requests, 2);
    QCOMPARE(costs.of(39)->cost.requests, 2);
    QCOMPARE(costs.of(40)->cost.requests, 1);
    QCOMPARE(costs.of(125)->cost.duration, costs.of(40)->cost.duration);
    QCOMPARE(costs.best(), 40); // the lowest of those
    QVERIFY(!costs.of(0));
    QVERIFY(!costs.of(126));
}

void LimitCostsTest::stopsAtNothing()
{
    LimitCosts costs;
    QCOMPARE(costs.best(), 0);
    costs.start({}, kx::LineTiming(), {});
    QVERIFY(costs.isFinished());
    QVERIFY(costs.results().isEmpty());
    QCOMPARE(costs.best(), 0);
}

void LimitCostsTest::beginsAnew()
{
    LimitCosts costs;
    costs.start({registers(100, 40)}, kx::LineTiming(), {});
    costs.start({registers(100, 2)}, kx::LineTiming(), {});
    QTRY_VERIFY(costs.isFinished());
    QCOMPARE(costs.results().size(), 125);
    QCOMPARE(costs.best(), 2);
    costs.start({registers(100, 40)}, kx::LineTiming(), {});
    costs.start({}, kx::LineTiming(), {});
    QVERIFY(costs.isFinished());
    QVERIFY(costs.results().isEmpty());
}

void LimitCostsTest::theBestIsTheLeastTime_data()
{
    QTest::addColumn<QList<kx::PolledRange>>("watched");
    QTest::newRow("one run") << QList<kx::PolledRange>{registers(100, 40)};
    QTest::newRow("scattered") << QList<kx::PolledRange>{registers(0, 3), registers(20, 4),
                                                         registers(90, 30), registers(7000, 1)};
    QTest::newRow("bits and registers")
        << QList<kx::PolledRange>{polled("M", 0, 300), polled("M", 700, 9), polled("X", 0, 16),
                                  registers(100, 12), polled("32CV", 200, 8)};
}

// What a session chooses without a limit, which is the row "auto" of kxhost's plan.
void LimitCostsTest::theBestIsTheLeastTime()
{
    QFETCH(QList<kx::PolledRange>, watched);
    QList<kx::AddressRange> ranges;
    for (const kx::PolledRange& one : watched)
        ranges << one.range;
    const kx::LengthResult automatic =
        resultOf(kx::chosenPlan(ranges, kx::ReadRules()), kx::WatchedRanges(ranges), {});
    LimitCosts costs;
    costs.start(watched, kx::LineTiming(), {});
    QTRY_VERIFY(costs.isFinished());
    QCOMPARE(costs.of(costs.best())->cost.duration, automatic.cost.duration);
    QCOMPARE(costs.of(costs.best())->cost.requests, automatic.cost.requests);
    QVERIFY(costs.best() == 1
            || costs.of(costs.best() - 1)->cost.duration > automatic.cost.duration);
}

QTEST_GUILESS_MAIN(LimitCostsTest)

#include "tst_limit_costs.moc"
