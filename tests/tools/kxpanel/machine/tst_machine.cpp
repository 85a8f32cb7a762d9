#include "kxpanel/machine/machine_thread.h"
#include "panel/jobs/scan_job.h"
#include "panel/jobs/write_job.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QDateTime>
#include <QtCore/QThread>
#include <QtTest/QTest>

#include <algorithm>

using namespace kxpanel;

namespace
{

using Raw = QList<qint64>;

/// D110 of a simulated controller holds 650 until it is written.
JobMaker writeOfD110(qint64 value)
{
    return [value](kx::Session* session) {
        return std::make_unique<kx::WriteJob>(
            session, QList<kx::Assignment>{{watched(1, "D110").tag.range, {value}}});
    };
}

JobMaker scanOf(const QList<int>& stations)
{
    return [stations](kx::Session* session) {
        return std::make_unique<kx::ScanJob>(session, stations);
    };
}

} // namespace

class MachineTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aLineThatOpensIsTold();
    void aPortThatIsNotThereIsTold();
    void aNetworkIsToldApart();
    void valuesGoByTheirNumbers();
    void anAgeIsToldThoughNothingChanges();
    void valuesMayBeReplacedWhileTheLineIsOpen();
    void exchangesAreNumbered();
    void countsComeWhileTheLineIsOpen();
    void stationsOfTheValuesAreSimulated();
    void aStationAddedLaterIsSimulated();
    void aWriteEndsOnce();
    void aScanTellsHowFarItIs();
    void withoutALineAJobEndsAtOnce();
    void aJobIsAborted();
    void closingEndsJobs();
    void anotherLineTakesThePlace();
    void limitsAreTakenAtOnce();
    void limitsMakeNoRequestLongerThanItPays();
    void limitsWaitForJobs();
    void aLostLineIsOpenedAgain();
    void tenThousandValues();
    void aBusyMainThreadFindsNoTimeOut();

private:
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MachineLog> m_log;
};

void MachineTest::init()
{
    m_machine = std::make_unique<Machine>();
    m_log = std::make_unique<MachineLog>(m_machine.get());
}

void MachineTest::cleanup()
{
    m_machine.reset();
    m_log.reset();
}

void MachineTest::aLineThatOpensIsTold()
{
    m_machine->openLine(simulated());
    QCOMPARE(m_log->states, QStringList()); // it is not waited for
    QTRY_COMPARE(m_log->states, (QStringList{"opening", "open"}));
    m_machine->closeLine();
    QTRY_COMPARE(m_log->states, (QStringList{"opening", "open", "closed"}));
}

void MachineTest::aPortThatIsNotThereIsTold()
{
    m_machine->openLine(serialPort(QStringLiteral("/dev/none")));
    QTRY_COMPARE(m_log->states, (QStringList{"opening", "closed: /dev/none: cannot open the port: "
                                                        "No such file or directory"}));
    m_machine->openLine(serialPort(QStringLiteral("/dev/none")));
    QTRY_COMPARE(m_log->states.size(), 4); // and may be tried again
}

void MachineTest::aNetworkIsToldApart()
{
    LineStatus status;
    connect(m_machine.get(), &Machine::lineChanged, this,
            [&status](const LineStatus& now) { status = now; });
    m_machine->openLine(simulated());
    QTRY_COMPARE(status.state, LineState::Open);
    QVERIFY(!status.isNetwork);
    kx::ConnectionOptions options = simulated();
    options.simulate = false;
    options.gateway = {QStringLiteral("127.0.0.1"), 1}; // where nobody listens
    m_machine->openLine(options);
    QTRY_VERIFY(status.isNetwork);
    QCOMPARE(status.timing.baud, 9600); // of the serial line behind it
    m_machine->closeLine();
    QTRY_COMPARE(status.state, LineState::Closed);
}

void MachineTest::valuesGoByTheirNumbers()
{
    const KxsimProcess simulator(
        {"--still", "--set", "D110=650", "--set", "D120=0,16968", "--set", "M20=1"});
    // A float that holds 50.0, the low word first; D110 twice, once as a single bit of it.
    m_machine->setValues({watched(7, "D120/float"), watched(3, "D110"), watched(9, "D110"),
                          watched(4, "D110.1"), watched(8, "M20"), watched(5, "D0@2")});
    m_machine->openLine(serialPort(simulator.portName()));
    QTRY_COMPARE(m_log->readings.value(5).state, kx::WatchState::NoAnswer);
    QCOMPARE(m_log->readings.value(5).raw, Raw());
    QCOMPARE(m_log->readings.value(5).readAt, qint64(0));
    QTRY_COMPARE(m_log->readings.value(7).raw, (Raw{0, 16968}));
    QCOMPARE(m_log->readings.value(3).raw, Raw{650});
    QCOMPARE(m_log->readings.value(9).raw, Raw{650});
    QCOMPARE(m_log->readings.value(4).raw, Raw{650});
    QCOMPARE(m_log->readings.value(8).raw, Raw{1});
    QCOMPARE(m_log->readings.value(3).state, kx::WatchState::Ok);
    QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - m_log->readings.value(3).readAt) < 60000);
    QCOMPARE(m_log->readings.value(3).changedAt, qint64(0));
    QCOMPARE(m_log->readings.size(), 6);
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("open: station 2 does not answer"));
}

void MachineTest::anAgeIsToldThoughNothingChanges()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->readings.value(1).state, kx::WatchState::Ok);
    const Reading first = m_log->readings.value(1);
    QTRY_VERIFY(m_log->readings.value(1).readAt > first.readAt);
    QCOMPARE(m_log->readings.value(1).changedAt, qint64(0));
}

void MachineTest::valuesMayBeReplacedWhileTheLineIsOpen()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{650});
    m_machine->setValues({watched(2, "D111"), watched(1, "D110")});
    QTRY_COMPARE(m_log->readings.value(2).raw, Raw{1200});
    m_log->readings.clear();
    m_machine->setValues({watched(1, "D110")});
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{650}); // kept, and told once more
    QCOMPARE(m_log->readings.size(), 1);
    m_machine->setValues({});
    QTRY_VERIFY(m_log->cycles > 2);
}

void MachineTest::exchangesAreNumbered()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_VERIFY(m_log->exchanges.size() >= 3);
    m_machine->closeLine();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
    const Exchange first = m_log->exchanges.first();
    QCOMPARE(first.number, qint64(1));
    QCOMPARE(first.request, QByteArray::fromHex("01 03 006E 0001 E5D7")); // D110, one register
    QCOMPARE(first.reply.left(5), QByteArray::fromHex("01 03 02 028A"));  // 650
    QVERIFY(first.wasAccepted);
    QVERIFY(first.finishedAt >= first.sentAt);
    const int before = static_cast<int>(m_log->exchanges.size());
    QCOMPARE(m_log->exchanges.last().number, qint64(before));
    m_machine->openLine(simulated());
    QTRY_VERIFY(m_log->exchanges.size() > before);
    QCOMPARE(m_log->exchanges.at(before).number, qint64(before + 1)); // on any line
}

void MachineTest::countsComeWhileTheLineIsOpen()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_VERIFY(m_log->summaries.size() >= 2);
    m_machine->closeLine();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
    const auto counts = m_log->summaries.size();
    QCOMPARE(m_log->summaries.last().statistics.accepted, qint64(m_log->exchanges.size()));
    QTest::qWait(600);
    QCOMPARE(m_log->summaries.size(), counts);
}

void MachineTest::stationsOfTheValuesAreSimulated()
{
    m_machine->setValues({watched(1, "D110@2"), watched(2, "D110@9")});
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{650});
    QTRY_COMPARE(m_log->readings.value(2).raw, Raw{650});
}

void MachineTest::aStationAddedLaterIsSimulated()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{650});
    m_machine->startJob(5, writeOfD110(7));
    m_machine->setValues({watched(1, "D110"), watched(2, "D110@9")});
    QTRY_COMPARE(m_log->readings.value(2).raw, Raw{650});
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{7}); // the others go on as they were
    QCOMPARE(m_log->states, (QStringList{"opening", "open"}));
}

void MachineTest::aWriteEndsOnce()
{
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    m_machine->startJob(41, writeOfD110(1234));
    QTRY_VERIFY(m_log->ended.contains(41) || m_log->states.contains("open"));
    m_log->ended.clear();
    QTRY_COMPARE(m_log->readings.value(1).state, kx::WatchState::Ok);
    const int ends = m_log->ends;
    m_machine->startJob(42, writeOfD110(1234));
    QTRY_VERIFY(m_log->ended.contains(42));
    QVERIFY(m_log->ended.value(42).isNone());
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{1234});
    QVERIFY(m_log->readings.value(1).changedAt > 0);
    QCOMPARE(m_log->ends, ends + 1);
}

void MachineTest::aScanTellsHowFarItIs()
{
    kx::ConnectionOptions options = simulated();
    options.simulatedStations = {1, 3};
    options.session.retries = 1;
    m_machine->openLine(options);
    QTRY_VERIFY(m_log->states.contains("open"));
    QStringList told;
    connect(m_machine.get(), &Machine::jobProgress, this, [&](int ticket, int done, int total) {
        told << QStringLiteral("%1: %2/%3").arg(ticket).arg(done).arg(total);
    });
    QList<int> found;
    m_machine->startJob(5, [&](kx::Session* session) {
        auto job = std::make_unique<kx::ScanJob>(session, QList<int>{1, 2, 3});
        connect(job.get(), &kx::ScanJob::stationAnswered, this,
                [&](const kx::ScanReply& reply) { found << reply.station; });
        return job;
    });
    QTRY_VERIFY(m_log->ended.contains(5));
    QCOMPARE(told, (QStringList{"5: 1/3", "5: 2/3", "5: 3/3"}));
    QCOMPARE(found, (QList<int>{1, 3}));
}

void MachineTest::withoutALineAJobEndsAtOnce()
{
    m_machine->startJob(3, writeOfD110(1));
    QTRY_COMPARE(m_log->ends, 1);
    QCOMPARE(m_log->ended.value(3).text, QStringLiteral("the line is not open"));
    m_machine->abortJob(3); // over long ago
    m_machine->abortJob(99);
    QTest::qWait(20);
    QCOMPARE(m_log->ends, 1);
}

void MachineTest::aJobIsAborted()
{
    m_machine->openLine(simulated());
    QTRY_VERIFY(m_log->states.contains("open"));
    m_machine->startJob(3, scanOf({2, 3, 4, 5, 6, 7, 8, 9})); // half a second each
    m_machine->abortJob(3);
    QTRY_COMPARE(m_log->ends, 1);
    QCOMPARE(m_log->ended.value(3).kind, kx::FailureKind::Aborted);
    QCOMPARE(m_log->states.last(), QStringLiteral("open"));
}

void MachineTest::closingEndsJobs()
{
    m_machine->openLine(simulated());
    QTRY_VERIFY(m_log->states.contains("open"));
    m_machine->startJob(3, scanOf({2, 3, 4, 5, 6, 7, 8, 9}));
    m_machine->closeLine();
    m_machine->closeLine();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
    QCOMPARE(m_log->ended.value(3).kind, kx::FailureKind::SessionEnded);
    QCOMPARE(m_log->ends, 1);
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("open"));
    m_machine->startJob(4, scanOf({2, 3, 4, 5, 6, 7, 8, 9}));
    QTest::qWait(20);
    m_machine.reset();
    QCOMPARE(m_log->ends, 2);
}

void MachineTest::anotherLineTakesThePlace()
{
    const KxsimProcess simulator({"--still", "--set", "D110=7"});
    m_machine->setValues({watched(1, "D110")});
    m_machine->openLine(simulated());
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{650});
    m_machine->openLine(serialPort(simulator.portName()));
    m_machine->openLine(serialPort(simulator.portName())); // a double click
    QTRY_COMPARE(m_log->readings.value(1).raw, Raw{7});
    QStringList states;
    for (const QString& state : qAsConst(m_log->states)) {
        const QString word = state.section(':', 0, 0); // without what a busy machine finds wrong
        if (states.isEmpty() || states.last() != word)
            states << word;
    }
    QCOMPARE(states,
             (QStringList{"opening", "open", "closed", "opening", "closed", "opening", "open"}));
}

void MachineTest::limitsAreTakenAtOnce()
{
    m_machine->setValues({watched(1, "D110"), watched(2, "D111"), watched(3, "D112")});
    m_machine->openLine(simulated());
    QTRY_VERIFY(!m_log->exchanges.isEmpty());
    QCOMPARE(m_log->exchanges.last().range.values, 3);
    QCOMPARE(m_log->status.longestRequest, 125);
    QCOMPARE(m_log->status.sessions, 1);
    m_machine->setLimits(2, 0);
    QTRY_VERIFY(m_log->exchanges.last().range.values < 3);
    QCOMPARE(m_log->status.longestRequest, 2);
    QCOMPARE(m_log->status.sessions, 2);
    m_log->exchanges.clear();
    QTRY_VERIFY(m_log->exchanges.size() > 2);
    for (const Exchange& exchange : qAsConst(m_log->exchanges))
        QVERIFY(exchange.range.values <= 2);
    m_machine->setLimits(0, 0);
    QTRY_COMPARE(m_log->exchanges.last().range.values, 3);
    m_machine->setLimits(2, 0);
    QTRY_COMPARE(m_log->status.longestRequest, 2);
    m_machine->openLine(simulated()); // whose options say nothing of it
    QTRY_COMPARE(m_log->status.longestRequest, 125);
    kx::ConnectionOptions options = simulated();
    options.session = limited(options.session, 2, 32);
    m_machine->openLine(options);
    QTRY_COMPARE(m_log->status.longestRequest, 2);
}

void MachineTest::limitsMakeNoRequestLongerThanItPays()
{
    // D111 to D130 between them take longer on the line than another request.
    m_machine->setValues({watched(1, "D110"), watched(2, "D131")});
    m_machine->openLine(simulated());
    m_machine->setLimits(32, 512);
    QTRY_VERIFY(m_log->exchanges.size() > 4);
    m_log->exchanges.clear();
    QTRY_VERIFY(m_log->exchanges.size() > 4);
    for (const Exchange& exchange : qAsConst(m_log->exchanges))
        QCOMPARE(exchange.range.values, 1);
}

void MachineTest::limitsWaitForJobs()
{
    kx::ConnectionOptions options = simulated();
    options.session.retries = 1;
    options.session.exchange.replyTimeout = 100;
    m_machine->openLine(options);
    QTRY_VERIFY(m_log->states.contains("open"));
    m_machine->startJob(3, scanOf({2, 3}));
    m_machine->setLimits(2, 0);
    QTRY_VERIFY(m_log->ended.contains(3));
    QVERIFY(m_log->ended.value(3).isNone()); // silence is what a scan is for
    QTRY_COMPARE(m_log->states, (QStringList{"opening", "open", "open"})); // once more
}

void MachineTest::aLostLineIsOpenedAgain()
{
    kx::ConnectionOptions options = simulated();
    QString error;
    QVERIFY(kxsim::addFault(QStringLiteral("close:0.1"), &options.faults, &error));
    m_machine->setValues({watched(1, "D0")});
    m_machine->openLine(options);
    QTRY_VERIFY(m_log->states.contains(QStringLiteral("interrupted: line lost")));
    const auto lost = m_log->states.indexOf(QStringLiteral("interrupted: line lost"));
    QTRY_VERIFY(m_log->states.size() > lost + 1);
    QVERIFY(m_log->states.at(lost + 1).startsWith(QStringLiteral("open")));
    const qint64 readAt = m_log->readings.value(1).readAt;
    QTRY_VERIFY(m_log->readings.value(1).readAt > readAt);
    m_machine->closeLine();
    QTRY_COMPARE(m_log->states.last(), QStringLiteral("closed"));
}

void MachineTest::tenThousandValues()
{
    QList<WatchedValue> values;
    const WatchedValue first = watched(1, "D0");
    for (int number = 1; number <= 10000; ++number) {
        WatchedValue value = first;
        value.number = number;
        value.tag.range.address = number % 8000;
        value.tag.range.station = 1 + number / 8000;
        values << value;
    }
    kx::ConnectionOptions options = simulated();
    options.simulatedStations = {1, 2};
    options.timing.baud = 115200; // the simulated line takes its time, too
    options.session.exchange.replyTimeout = 2000;
    m_machine->setValues(values);
    m_machine->openLine(options);
    QTRY_VERIFY_WITH_TIMEOUT(m_log->cycles >= 1, 60000);
    QTRY_COMPARE(m_log->readings.size(), 10000);
    QTRY_VERIFY(
        std::all_of(m_log->readings.cbegin(), m_log->readings.cend(),
                    [](const Reading& reading) { return reading.state == kx::WatchState::Ok; }));
    QCOMPARE(m_log->readings.value(110).raw, Raw{650});
    QCOMPARE(m_log->readings.value(8110).raw, Raw{650}); // of station 2
}

void MachineTest::aBusyMainThreadFindsNoTimeOut()
{
    const MachineThread thread;
    const MachineLog log(thread.machine());
    thread.machine()->setValues({watched(1, "D110")});
    kx::ConnectionOptions options = simulated();
    options.session.exchange.replyTimeout = 2000;
    thread.machine()->openLine(options);
    QTRY_VERIFY(log.cycles >= 1);
    QThread::msleep(3000);         // longer than a time-out
    QTRY_VERIFY(log.cycles >= 20); // it went on meanwhile
    QTRY_VERIFY(!log.summaries.isEmpty());
    QCOMPARE(log.summaries.last().statistics.accepted, log.summaries.last().statistics.requests);
    QCOMPARE(log.states, (QStringList{"opening", "open"}));
}

QTEST_MAIN(MachineTest)
#include "tst_machine.moc"
