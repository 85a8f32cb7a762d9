// `kxhost scan` as a process, against simulated controllers on a pseudo-terminal.

#include "command_process.h"
#include "kxsim/service/simulated_line.h"
#include "watch_process.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

class ScanCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void twoStationsAnswer();
    void nobodyAnswers();
    void answersAsJson();
    void framesAreShown();
    void aSimulatedControllerInside();
    void ctrlCEndsAScanThatFoundAStation();
    void ctrlCEndsAScanThatFoundNone();
    void theHelpNamesItsOwnTimeoutAndNoUselessOption();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
    void aMissingPortIsNamed();

private:
    CommandResult scan(const QStringList& arguments);

    std::unique_ptr<kxsim::SimulatedLine> m_line;
};

void ScanCommandTest::initTestCase()
{
    kxsim::Simulation simulation;
    simulation.stations = {2, 5};
    QString error;
    m_line = kxsim::SimulatedLine::start(simulation, &error);
    QVERIFY2(m_line, qPrintable(error));
}

CommandResult ScanCommandTest::scan(const QStringList& arguments)
{
    return runCommand(QStringList{"scan", "--port", m_line->portName()} + arguments);
}

void ScanCommandTest::twoStationsAnswer()
{
    const CommandResult result = scan({"--stations", "1-6"});
    QCOMPARE(result.output, (QStringList{"station 2: answered", "station 5: answered",
                                         "2 of 6 stations answered"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void ScanCommandTest::nobodyAnswers()
{
    const CommandResult result = scan({"--stations", "3-4", "--timeout", "50"});
    QCOMPARE(result.output, (QStringList{"0 of 2 stations answered"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 1);
}

void ScanCommandTest::answersAsJson()
{
    const CommandResult result = scan({"--stations", "5,6", "--json"});
    QCOMPARE(result.output,
             (QStringList{"{\"answer\":\"value\",\"event\":\"station\",\"station\":5}",
                          "{\"answered\":1,\"event\":\"summary\",\"notAsked\":0,\"stations\":2}"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanCommandTest::framesAreShown()
{
    const QString request = QLatin1String("request station 05, function 03, address 00 00, "
                                          "quantity 00 01, CRC 85 8E");
    const CommandResult result = scan({"--stations", "5", "--frames"});
    QVERIFY2(result.output.join(QLatin1Char('\n')).contains(request),
             qPrintable(result.output.join(QLatin1Char('\n'))));
    QCOMPARE(result.output.last(), QString::fromLatin1("1 of 1 station answered"));
}

void ScanCommandTest::aSimulatedControllerInside()
{
    const CommandResult result = runCommand("scan --simulate --stations 1-2");
    QCOMPARE(result.output, (QStringList{"station 1: answered", "1 of 2 stations answered"}));
    QCOMPARE(result.exitCode, 0);
}

// Stations that do not answer keep the scan going for more than a minute.
void ScanCommandTest::ctrlCEndsAScanThatFoundAStation()
{
    RunningWatch scan({"scan", "--port", m_line->portName(), "--stations", "1-247"});
    QVERIFY(scan.waitForOutput("station 2: answered\n"));
    scan.sendSignal(SIGINT);
    QVERIFY(scan.waitForOutputEnd("had been asked\n"));
    QCOMPARE(scan.exitCode(), 0);
    QCOMPARE(scan.errors(), QByteArray());
    const QRegularExpression summary("(\\d+) of (\\d+) stations answered; stopped before the other "
                                     "(\\d+) had been asked\n$");
    const QRegularExpressionMatch match = summary.match(QString::fromUtf8(scan.output()));
    QVERIFY2(match.hasMatch(), scan.output().constData());
    QCOMPARE(match.captured(2).toInt() + match.captured(3).toInt(), 247);
}

void ScanCommandTest::ctrlCEndsAScanThatFoundNone()
{
    RunningWatch scan(
        {"scan", "--port", m_line->portName(), "--stations", "100-247", "--json", "--frames"});
    QVERIFY(scan.waitForOutput("\"event\":\"exchange\""));
    scan.sendSignal(SIGINT);
    QVERIFY(scan.waitForOutputEnd("}\n"));
    QCOMPARE(scan.exitCode(), 1);
    QCOMPARE(scan.errors(), QByteArray());
    QVERIFY2(scan.output().contains("{\"answered\":0,\"event\":\"summary\",\"notAsked\":1"),
             scan.output().constData());
}

void ScanCommandTest::theHelpNamesItsOwnTimeoutAndNoUselessOption()
{
    const QString help = runCommand("scan --help").output.join('\n');
    QVERIFY(help.contains("Milliseconds to wait for a reply (default 200)."));
    QVERIFY(!help.contains("--station "));
    QVERIFY(!help.contains("--retries"));
    QVERIFY(!help.contains("--max-words"));
    QVERIFY(runCommand("read --help")
                .output.join('\n')
                .contains("Milliseconds to wait for a reply (default 1000)."));
}

void ScanCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("no line") << "scan"
                             << "kxhost: no line; name one with --port or --tcp, or use --simulate";
    QTest::newRow("a wrong list") << "scan --simulate --stations 0-3"
                                  << "kxhost: --stations 0-3: '0-3' is not a station (1 to 247) "
                                     "or a range such as 1-20";
    QTest::newRow("a station without the option")
        << "scan --simulate 5"
        << "kxhost: 5: unexpected; a scan takes --stations";
    QTest::newRow("a station") << "scan --simulate -a 5"
                               << "kxhost: --station: a scan has no use for it; it asks each "
                                  "station of --stations once";
    QTest::newRow("retries") << "scan --simulate --retries 2"
                             << "kxhost: --retries: a scan has no use for it; it asks each "
                                "station of --stations once";
    QTest::newRow("a request limit") << "scan --simulate --max-words 8"
                                     << "kxhost: --max-words: a scan has no use for it; it asks "
                                        "each station of --stations once";
    QTest::newRow("the settings of a gateway")
        << "scan --tcp gateway --baud auto"
        << "kxhost: auto needs --port: behind --tcp the gateway sets its serial line";
    QTest::newRow("another word") << "scan --simulate --parity any"
                                  << "kxhost: --parity any: must be none, even or odd";
    QTest::newRow("a wrong time-out")
        << "scan --simulate --timeout 0"
        << "kxhost: --timeout 0: must be a whole number of milliseconds from 1 to 60000";
}

void ScanCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(QLatin1Char(' ')));
    QCOMPARE(result.errors, QStringList{line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void ScanCommandTest::aMissingPortIsNamed()
{
    const CommandResult result = runCommand("scan --port /dev/no-such-port");
    QCOMPARE(static_cast<int>(result.errors.size()), 1);
    QVERIFY2(result.errors.first().contains(QLatin1String("/dev/no-such-port")),
             qPrintable(result.errors.first()));
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 3);
}

QTEST_GUILESS_MAIN(ScanCommandTest)
#include "tst_scan_command.moc"
