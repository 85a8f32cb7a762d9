#include "kxpanel/line/limit/limit_costs.h"

#include "registers/register_types.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

kx::AddressRange registers(int address, int count, int station)
{
    return {findRegisterType(QStringLiteral("D")), address, count, station};
}

QMap<int, ReplyTimes> repliesOf(int station, qint64 time)
{
    QMap<int, ReplyTimes> replies;
    replies[station].add(time);
    return replies;
}

} // namespace

class LimitCostsTest : public QObject
{
    Q_OBJECT

private slots:
    void rules();
    void costOfAPlan();
    void eachStationByItsOwnTurnaround();
    void allLimits();
    void stopsAtNothing();
    void beginsAnew();
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

void LimitCostsTest::costOfAPlan()
{
    const kx::ReadRules rules = limitedRules(125, kx::LineTiming(), {});
    const kx::CycleCost cost = costOfPlan(chosenPlan({registers(100, 10, 1)}, rules), rules);
    QCOMPARE(cost.requests, 1);
    QCOMPARE(cost.bytesSent, qint64(8));
    QCOMPARE(cost.bytesExpected, qint64(25)); // 5 and two for each register
    QCOMPARE(cost.busy, qint64(34375));       // 33 characters of 10 bits at 9600 baud
    // The turnaround of 5000 us and the frame gap of 3646 beside it.
    QCOMPARE(cost.duration, qint64(43021));
}

void LimitCostsTest::eachStationByItsOwnTurnaround()
{
    const kx::ReadRules rules = limitedRules(125, kx::LineTiming(), repliesOf(2, 20000));
    const QList<kx::AddressRange> watched = {registers(100, 10, 1), registers(100, 10, 2)};
    const kx::CycleCost cost = costOfPlan(chosenPlan(watched, rules), rules);
    QCOMPARE(cost.requests, 2);
    QCOMPARE(cost.duration, qint64(43021 + 58021));
}

void LimitCostsTest::allLimits()
{
    LimitCosts costs;
    QSignalSpy advanced(&costs, &LimitCosts::advanced);
    costs.start({registers(100, 40, 1)}, kx::LineTiming(), {});
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
    costs.start({registers(100, 40, 1)}, kx::LineTiming(), {});
    costs.start({registers(100, 2, 1)}, kx::LineTiming(), {});
    QTRY_VERIFY(costs.isFinished());
    QCOMPARE(costs.results().size(), 125);
    QCOMPARE(costs.best(), 2);
    costs.start({registers(100, 40, 1)}, kx::LineTiming(), {});
    costs.start({}, kx::LineTiming(), {});
    QVERIFY(costs.isFinished());
    QVERIFY(costs.results().isEmpty());
}

QTEST_GUILESS_MAIN(LimitCostsTest)

#include "tst_limit_costs.moc"
