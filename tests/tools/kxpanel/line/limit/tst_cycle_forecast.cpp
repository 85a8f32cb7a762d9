#include "kxpanel/line/limit/cycle_forecast.h"

#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

// A read of ten registers takes 8 + 25 characters of 10 bits at 9600 baud, 34375 us, the turnaround
// of 5000 us and the frame gap of 3646.
const qint64 TEN_REGISTERS = 43021;
const qint64 BUSY = 34375;

/// Ten registers.
kx::PolledRange poll(int address, int interval, int station = 1)
{
    return {{findRegisterType(QStringLiteral("D")), address, 10, station}, interval};
}

} // namespace

class CycleForecastTest : public QObject
{
    Q_OBJECT

private slots:
    void nothing();
    void aRound();
    void eachStationByItsOwnTurnaround();
    void seldomPollsShareTheCycle();
    void intervalsAlone();
    void intervalsThatCannotBeKept();
};

void CycleForecastTest::nothing()
{
    QCOMPARE(forecastCycle({}, serialCost({})).requests, 0);
}

void CycleForecastTest::aRound()
{
    const kx::CycleCost cost = forecastCycle({poll(100, 0), poll(7000, 0)}, serialCost({}));
    QCOMPARE(cost.requests, 2);
    QCOMPARE(cost.bytesSent, qint64(16));
    QCOMPARE(cost.bytesExpected, qint64(50)); // 5 and two for each register
    QCOMPARE(cost.busy, 2 * BUSY);
    QCOMPARE(cost.duration, 2 * TEN_REGISTERS);
}

void CycleForecastTest::eachStationByItsOwnTurnaround()
{
    kx::ReadRules rules;
    kx::StationRules slow;
    slow.turnaround = 20000; // 15000 us more
    rules.stations.insert(2, slow);
    const kx::CycleCost cost = forecastCycle({poll(100, 0), poll(100, 0, 2)}, serialCost(rules));
    QCOMPARE(cost.duration, 2 * TEN_REGISTERS + 15000);
}

void CycleForecastTest::seldomPollsShareTheCycle()
{
    // Of two that alternate in about 86 ms, a third every 860 ms makes each tenth cycle half as
    // long again.
    const kx::CycleCost cost =
        forecastCycle({poll(100, 0), poll(7000, 0), poll(4000, 860)}, serialCost({}));
    QCOMPARE(cost.requests, 2);
    QVERIFY2(qAbs(cost.duration - (2 * TEN_REGISTERS + TEN_REGISTERS / 10)) < 500,
             qPrintable(QString::number(cost.duration)));
    QVERIFY2(qAbs(cost.busy - (2 * BUSY + BUSY / 10)) < 400,
             qPrintable(QString::number(cost.busy)));
}

void CycleForecastTest::intervalsAlone()
{
    const kx::CycleCost cost =
        forecastCycle({poll(100, 500), poll(7000, 500), poll(4000, 1000)}, serialCost({}));
    QCOMPARE(cost.duration, qint64(500000)); // the shortest
    QCOMPARE(cost.requests, 3);              // two, and one in each other cycle
    QVERIFY(qAbs(cost.busy - (2 * BUSY + BUSY / 2)) < 2);
    QVERIFY(qAbs(cost.needed - (2 * TEN_REGISTERS + TEN_REGISTERS / 2)) < 2);
    // Of cycles that wait for the one between them some are longer, and others as much shorter.
    const kx::CycleCost drifting = forecastCycle(
        {poll(100, 300), poll(7000, 530), poll(4000, 1370), poll(2000, 1370), poll(5000, 1370)},
        serialCost({}));
    QCOMPARE(drifting.duration, qint64(300000));
}

void CycleForecastTest::intervalsThatCannotBeKept()
{
    const kx::CycleCost cost = forecastCycle({poll(100, 50), poll(7000, 50)}, serialCost({}));
    QCOMPARE(cost.duration, 2 * TEN_REGISTERS);
    QCOMPARE(cost.needed, 2 * TEN_REGISTERS);
    // Each takes its turn with the other that is always there.
    const kx::CycleCost mixed = forecastCycle({poll(100, 0), poll(7000, 10)}, serialCost({}));
    QCOMPARE(mixed.duration, 2 * TEN_REGISTERS);
}

QTEST_GUILESS_MAIN(CycleForecastTest)

#include "tst_cycle_forecast.moc"
