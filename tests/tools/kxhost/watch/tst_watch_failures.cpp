#include "support/process_signal.h"
#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/watch_process.h"

#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

const int SUMMARY_LINES = 3; // of a run with time-outs

} // namespace

class WatchFailuresTest : public QObject
{
    Q_OBJECT

private slots:
    void silentStationFails();
    void oneSilentStationOfTwoFails();
    void refusedRequestFails();
    void stationThatComesBackIsFine();
    void lostLineFails();
    void signalsEndItWithTheSummary_data();
    void signalsEndItWithTheSummary();
    void nohupLetsItOutliveItsTerminal();
};

void WatchFailuresTest::silentStationFails()
{
    const KxsimProcess simulator;
    const CommandResult result =
        runCommand(on(simulator, "watch D100:2@9 --timeout 300 --retries 2 --cycles 2"));
    QCOMPARE(result.exitCode, 1);
    // Told once, not in every cycle.
    QCOMPARE(withoutTimes(result.output.mid(0, result.output.size() - SUMMARY_LINES)),
             QStringList({QString::fromLatin1("station 9 does not answer"),
                          QString::fromLatin1("9 D100 no answer"),
                          QString::fromLatin1("9 D101 no answer")}));
    // A station that is known to be silent is tried once.
    QVERIFY(holds(result.output, "3 requests in 2 cycles: 0 accepted, 1 repeated, 2 failed"));
}

void WatchFailuresTest::oneSilentStationOfTwoFails()
{
    const KxsimProcess simulator(presets("D100=5"));
    const CommandResult result =
        runCommand(on(simulator, "watch D100 D100@9 --timeout 300 --retries 1 --cycles 1"));
    QCOMPARE(result.exitCode, 1);
    QVERIFY(holds(result.output, " 1 D100 5"));
    QVERIFY(holds(result.output, " 9 D100 no answer"));
}

void WatchFailuresTest::refusedRequestFails()
{
    const KxsimProcess simulator({"--fault", "exception:1"});
    const CommandResult result =
        runCommand(on(simulator, "watch SM255 --retries 1 --cycles 1 --frames"));
    QCOMPARE(result.exitCode, 1);
    QVERIFY(holds(result.output, "exception 6 (busy), failed"));
    QVERIFY(holds(result.output, " 1 SM255 refused"));
    QVERIFY(holds(result.output, "repeated or failed: 1 refused by the station"));
}

void WatchFailuresTest::stationThatComesBackIsFine()
{
    const KxsimProcess simulator(presets("D100=1234"));
    Gateway gateway(simulator);
    RunningWatch watch(QString::fromLatin1("watch D100 --timeout 50 --retries 1 --tcp %1")
                           .arg(gateway.address())
                           .split(QLatin1Char(' ')));
    QVERIFY(watch.waitForOutput(" 1 D100 1234\n"));
    gateway.isSilent = true;
    QVERIFY(watch.waitForOutput(" station 1 does not answer\n"));
    QVERIFY(watch.waitForOutput(" 1 D100 no answer\n"));
    gateway.isSilent = false;
    QVERIFY(watch.waitForOutputEnd(" 1 D100 1234\n"));
    watch.sendSignal(SIGINT);
    QCOMPARE(watch.exitCode(), 0);
    QCOMPARE(watch.output().count(" does not answer\n"), 1);
    QCOMPARE(watch.output().count(" station 1 answers again\n"), 1);
}

void WatchFailuresTest::lostLineFails()
{
    auto simulator = std::make_unique<KxsimProcess>(presets("D100=1234"));
    const QString port = simulator->portName();
    RunningWatch watch(on(*simulator, "watch D100"));
    QVERIFY(watch.waitForOutput(" 1 D100 1234\n"));
    simulator.reset();
    QCOMPARE(watch.exitCode(), 1);
    const QByteArray errors = watch.errors();
    QCOMPARE(errors, "kxhost: " + port.toUtf8() + ": the port was closed or unplugged\n");
    QVERIFY(watch.output().contains("requests/s"));
}

void WatchFailuresTest::signalsEndItWithTheSummary_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("kill") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
}

void WatchFailuresTest::signalsEndItWithTheSummary()
{
    QFETCH(int, signal);
    const KxsimProcess simulator(presets("D100=1234"));
    RunningWatch watch(on(simulator, "watch D100"));
    QVERIFY(watch.waitForOutput(" 1 D100 1234\n"));
    watch.sendSignal(signal);
    QCOMPARE(watch.exitCode(), 0);
    QVERIFY2(watch.output().contains(" 0 repeated, 0 failed\n"), watch.output().constData());
    QVERIFY(watch.output().contains("requests/s, line load "));
    QCOMPARE(watch.errors(), QByteArray());
}

void WatchFailuresTest::nohupLetsItOutliveItsTerminal()
{
    QProcess watch;
    watch.start(QStringLiteral("nohup"), {QStringLiteral(KX_HOST_PROGRAM), QStringLiteral("watch"),
                                          QStringLiteral("D0"), QStringLiteral("--simulate")});
    QTRY_VERIFY(watch.canReadLine());
    QVERIFY(signalProcess(watch.processId(), SIGHUP));
    // D0 counts on. What came in the same moment as the signal does not count.
    QTRY_VERIFY2(watch.peek(4096).count(" 1 D0 ") >= 4, "the watch has ended");
    QVERIFY(signalProcess(watch.processId(), SIGTERM));
    QVERIFY(watch.waitForFinished());
    QCOMPARE(watch.exitCode(), 0);
}

QTEST_GUILESS_MAIN(WatchFailuresTest)
#include "tst_watch_failures.moc"
