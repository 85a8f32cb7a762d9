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

} // namespace

Q_DECLARE_METATYPE(kx::PolledRange)

class LimitCostsTest : public QObject
{
    Q_OBJECT

private slots:
    void allLimits();
    void stopsAtNothing();
    void beginsAnew();
    void worksOnceOnTheSame();
    void whatIsKnownStaysUntilTheNewIs();
    void isGivenUpWithItsOwner();
    void theBestIsTheLeastTime_data();
    void theBestIsTheLeastTime();
};

void LimitCostsTest::allLimits()
{
    LimitCosts costs;
    QSignalSpy advanced(&costs, &LimitCosts::advanced);
    costs.start({registers(100, 40)}, AnswerPace());
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
    costs.start({}, AnswerPace());
    QVERIFY(costs.isFinished());
    QVERIFY(costs.results().isEmpty());
    QCOMPARE(costs.best(), 0);
}

void LimitCostsTest::beginsAnew()
{
    LimitCosts costs;
    costs.start({registers(100, 40)}, AnswerPace());
    costs.start({registers(100, 2)}, AnswerPace());
    QTRY_VERIFY(costs.isFinished());
    QCOMPARE(costs.results().size(), 125);
    QCOMPARE(costs.best(), 2);
    costs.start({registers(100, 40)}, AnswerPace());
    costs.start({}, AnswerPace());
    QVERIFY(costs.isFinished());
    QVERIFY(costs.results().isEmpty());
}

void LimitCostsTest::worksOnceOnTheSame()
{
    LimitCosts costs;
    AnswerPace pace;
    QVERIFY(costs.start({registers(100, 40)}, pace));
    QVERIFY(!costs.start({registers(100, 40)}, pace)); // while it works
    QTRY_VERIFY(costs.isFinished());
    QVERIFY(!costs.start({registers(100, 40)}, pace));
    QVERIFY(costs.isFinished());
    QVERIFY(costs.start({registers(100, 41)}, pace));
    pace.turnarounds.insert(1, 7000);
    QVERIFY(costs.start({registers(100, 41)}, pace));
    kx::PolledRange seldom = registers(100, 41);
    seldom.interval = 2000;
    QVERIFY(costs.start({seldom}, pace));
    QVERIFY(costs.start({}, pace));
    QVERIFY(!costs.start({}, pace));
}

void LimitCostsTest::whatIsKnownStaysUntilTheNewIs()
{
    LimitCosts costs;
    AnswerPace pace;
    costs.start({registers(100, 40)}, pace);
    QTRY_VERIFY(costs.isFinished());
    QVERIFY(!costs.isWorking());
    const qint64 before = costs.of(125)->cost.duration;
    pace.turnarounds.insert(1, 15000); // 10 ms more than is usual
    QSignalSpy advanced(&costs, &LimitCosts::advanced);
    QVERIFY(costs.start({registers(100, 40)}, pace));
    advanced.clear();
    QVERIFY(costs.isWorking());
    QCOMPARE(costs.best(), 40);
    QCOMPARE(costs.of(125)->cost.duration, before);
    QTRY_VERIFY(!costs.isWorking());
    QCOMPARE(advanced.count(), 1);
    QVERIFY(costs.isFinished());
    QCOMPARE(costs.results().size(), 125);
    QCOMPARE(costs.of(125)->cost.duration, before + 10000);
}

void LimitCostsTest::isGivenUpWithItsOwner()
{
    QList<kx::PolledRange> scattered;
    for (int value = 0; value < 1000; ++value)
        scattered << kx::PolledRange{{findRegisterType(QString("D")), 7 * value, 1, 1}, 1000};
    auto costs = std::make_unique<LimitCosts>();
    bool wasSeenAtWork = false; // when more has come, all may be known before this test goes on
    connect(costs.get(), &LimitCosts::advanced, this, [&] {
        wasSeenAtWork = wasSeenAtWork || (!costs->results().isEmpty() && !costs->isFinished());
    });
    costs->start(scattered, AnswerPace());
    QTRY_VERIFY_WITH_TIMEOUT(wasSeenAtWork, 20000);
    costs.reset(); // while it works; nothing comes any more
    QCoreApplication::processEvents();
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
    costs.start(watched, AnswerPace());
    QTRY_VERIFY(costs.isFinished());
    QCOMPARE(costs.of(costs.best())->cost.duration, automatic.cost.duration);
    QCOMPARE(costs.of(costs.best())->cost.requests, automatic.cost.requests);
    QVERIFY(costs.best() == 1
            || costs.of(costs.best() - 1)->cost.duration > automatic.cost.duration);
}

QTEST_GUILESS_MAIN(LimitCostsTest)

#include "tst_limit_costs.moc"
