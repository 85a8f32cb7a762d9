// Eight stations on one line, of which one may be dead: the others' values still come,
// and how much later. Time is virtual, so the figures are exact.

#include "tools/faults/faulty_run.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

const int STATIONS = 8;
const int DEAD = 5;
const int WARM_UP = 1; // cycles
const int CYCLES = 20;
const qint64 MICROSECONDS = 1000; // per millisecond

/// Stations 1 to 8 with 16 registers each: 8 + 37 characters of 10 bits at 9600 baud
/// (46.9 ms), 5 ms of processing and 3.6 ms of silence, in all 55.5 ms for each. A
/// request to a dead station takes 8.3 ms and the time-out, as often as the limit says.
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

/// Milliseconds of a cycle; `*accepted` becomes the replies accepted in all cycles.
qint64 cycleTime(const FaultyRunSettings& settings, qint64* accepted)
{
    FaultyRun run(settings);
    const int cycle = run.readsPerCycle();
    int reads = 0;
    QObject::connect(
        &run.session(), &Session::exchanged, &run.session(),
        [&](const ExchangeRecord& record) { reads += record.result == REPLY_RETRY ? 0 : 1; });
    run.runUntil([&] { return reads == cycle * WARM_UP; });
    const qint64 begin = run.clock().now();
    const qint64 acceptedBefore = run.session().statistics().accepted;
    run.runUntil([&] { return reads == cycle * (WARM_UP + CYCLES); });
    *accepted = run.session().statistics().accepted - acceptedBefore;
    return (run.clock().now() - begin) / CYCLES / MICROSECONDS;
}

} // namespace

class DeadStationTest : public QObject
{
    Q_OBJECT

private slots:
    void theOthersStillCome_data();
    void theOthersStillCome();
};

void DeadStationTest::theOthersStillCome_data()
{
    QTest::addColumn<int>("blocks"); // requests to each station
    QTest::addColumn<int>("retries");
    QTest::addColumn<int>("timeout");  // milliseconds
    QTest::addColumn<qint64>("alive"); // milliseconds of a cycle
    QTest::addColumn<qint64>("oneDead");
    const auto row = [](int blocks, int retries, int timeout, qint64 alive, qint64 oneDead) {
        QTest::addRow("%d requests each, retry limit %d, time-out %d ms", blocks, retries, timeout)
            << blocks << retries << timeout << alive << oneDead;
    };
    row(1, 1, 100, 444, 496);
    row(1, 1, 200, 444, 596);
    row(1, 1, 500, 444, 896);
    row(1, 1, 1000, 444, 1396);
    row(1, 2, 100, 444, 605);
    row(1, 2, 200, 444, 805);
    row(1, 2, 500, 444, 1405);
    row(1, 2, 1000, 444, 2405);
    row(1, 3, 100, 444, 713);
    row(1, 3, 200, 444, 1013);
    row(1, 3, 500, 444, 1913);
    row(1, 3, 1000, 444, 3413);
    row(1, 5, 200, 444, 1430);
    row(1, 5, 1000, 444, 5430);
    // Requests of one length to the dead station wait for each other's late replies.
    row(3, 1, 200, 1332, 2190);
    row(3, 3, 200, 1332, 3440);
}

void DeadStationTest::theOthersStillCome()
{
    QFETCH(int, blocks);
    QFETCH(int, retries);
    QFETCH(int, timeout);
    qint64 accepted = 0;
    const qint64 alive = cycleTime(eightStations(false, blocks, retries, timeout), &accepted);
    QCOMPARE(accepted, qint64(STATIONS * blocks * CYCLES));
    const qint64 oneDead = cycleTime(eightStations(true, blocks, retries, timeout), &accepted);
    QCOMPARE(accepted, qint64((STATIONS - 1) * blocks * CYCLES));
    qInfo("cycle of %lld ms alive, %lld ms with one dead", static_cast<long long>(alive),
          static_cast<long long>(oneDead));
    QTEST(alive, "alive");
    QTEST(oneDead, "oneDead");
}

QTEST_GUILESS_MAIN(DeadStationTest)
#include "tst_dead_station.moc"
