// Eight stations on one line, of which one may be dead: the others' values still come,
// and how much later. Time is virtual, so the figures are exact.

#include "tools/faults/faulty_run.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int STATIONS = 8;
const int DEAD = 5;
const qint64 MICROSECONDS = 1000; // per millisecond

/// Stations 1 to 8 with 16 registers each: 8 + 37 characters of 10 bits at 9600 baud
/// (46.9 ms), 5 ms of processing and 3.6 ms of silence, in all 55.5 ms for each. A
/// request to a dead station takes 8.3 ms and the time-out, as often as the limit says, and
/// once when it is a try.
FaultyRunSettings eightStations(bool isOneDead, int blocks, int retries, int timeout)
{
    FaultyRunSettings settings;
    settings.line.stations.clear();
    settings.session.retries = retries;
    settings.session.exchange.replyTimeout = timeout;
    for (int station = 1; station <= STATIONS; ++station) {
        if (station != DEAD || !isOneDead)
            settings.line.stations << station;
        for (int block = 0; block < blocks; ++block)
            settings.watched << QString::fromLatin1("D%1:16@%2").arg(100 * block).arg(station);
    }
    return settings;
}

/// What comes in a while.
struct Measured {
    qint64 mean = 0;     ///< milliseconds of a cycle
    qint64 accepted = 0; ///< replies in all of the cycles
    int cycles = 0;
};

/// @param from, until milliseconds
Measured measured(const FaultyRunSettings& settings, qint64 from, qint64 until)
{
    FaultyRun run(settings);
    Measured result;
    qint64 acceptedBefore = 0;
    qint64 begin = 0;
    qint64 end = 0;
    QObject::connect(&run.session(), &Session::cycleFinished, &run.session(), [&] {
        end = run.clock().now();
        if (end < from * MICROSECONDS)
            return;
        if (begin == 0) {
            begin = end;
            acceptedBefore = run.session().statistics().accepted;
            return;
        }
        ++result.cycles;
        result.accepted = run.session().statistics().accepted - acceptedBefore;
        result.mean = (end - begin) / result.cycles / MICROSECONDS;
    });
    run.runUntil([&] { return run.clock().now() >= until * MICROSECONDS; });
    return result;
}

} // namespace

class DeadStationTest : public QObject
{
    Q_OBJECT

private slots:
    void theOthersKeepTheirRate_data();
    void theOthersKeepTheirRate();
    void theFirstFailureTakesItsTimeOuts();
};

void DeadStationTest::theOthersKeepTheirRate_data()
{
    QTest::addColumn<int>("blocks"); // requests to each station
    QTest::addColumn<int>("retries");
    QTest::addColumn<int>("timeout");  // milliseconds
    QTest::addColumn<qint64>("alive"); // milliseconds of a cycle of all eight
    QTest::addColumn<qint64>("seven"); // milliseconds of a cycle of the others alone
    for (const int retries : {1, 3, 5}) {
        for (const int timeout : {100, 200, 500, 1000})
            QTest::addRow("1 request each, retry limit %d, time-out %d ms", retries, timeout)
                << 1 << retries << timeout << qint64(444) << qint64(388);
    }
    QTest::newRow("3 requests each") << 3 << 3 << 200 << qint64(1332) << qint64(1165);
}

// Once it has been silent for a minute the dead one is tried every 17th time-out.
void DeadStationTest::theOthersKeepTheirRate()
{
    QFETCH(int, blocks);
    QFETCH(int, retries);
    QFETCH(int, timeout);
    QFETCH(qint64, seven);
    const qint64 from = 60 * timeout;
    const qint64 until = from + 400 * timeout;
    const Measured alive = measured(eightStations(false, blocks, retries, timeout), from, until);
    QTEST(alive.mean, "alive");
    QCOMPARE(alive.accepted, qint64(alive.cycles) * STATIONS * blocks);
    const Measured oneDead = measured(eightStations(true, blocks, retries, timeout), from, until);
    QCOMPARE(oneDead.accepted, qint64(oneDead.cycles) * (STATIONS - 1) * blocks);
    qInfo("cycle of %lld ms alive, %lld ms with one dead", static_cast<long long>(alive.mean),
          static_cast<long long>(oneDead.mean));
    QVERIFY(oneDead.mean > seven); // it is tried
    QVERIFY(oneDead.mean * 10 <= seven * 11);
}

// Three time-outs of a second in the first cycle, and a try in the second.
void DeadStationTest::theFirstFailureTakesItsTimeOuts()
{
    FaultyRun run(eightStations(true, 3, 3, 1000));
    QList<qint64> ends;
    QObject::connect(&run.session(), &Session::cycleFinished, &run.session(),
                     [&] { ends << run.clock().now() / MICROSECONDS; });
    run.runUntil([&] { return ends.size() == 3; });
    // 7 x 3 x 55.5 ms for the others, 3 x (8.3 + 1000 + 3.6) ms for the dead one, then one of it.
    QVERIFY2(ends.at(0) >= 1165 + 3000 && ends.at(0) < 1165 + 3100,
             qPrintable(QString::number(ends.at(0))));
    QVERIFY(ends.at(1) - ends.at(0) >= 1165 + 1000 && ends.at(1) - ends.at(0) < 1165 + 1100);
    QVERIFY(ends.at(2) - ends.at(1) >= 1165 && ends.at(2) - ends.at(1) < 1165 + 100);
}

QTEST_GUILESS_MAIN(DeadStationTest)
#include "tst_dead_station.moc"
