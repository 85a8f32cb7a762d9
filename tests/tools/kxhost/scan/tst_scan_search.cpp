// `kxhost scan --baud auto --parity auto` as a process, on lines whose stations understand one
// setting.

#include "one_format_line.h"
#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/host_terminal.h"
#include "tools/kxhost/commands/watch_process.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

const char* const PATIENT = "250"; // milliseconds, also on a machine with much to do

} // namespace

class ScanSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void theRateIsFound();
    void theParityIsFound();
    void bothAreFound();
    void laterStationsAreAskedInAllSettings();
    void asJson();
    void nobodyAnswers();
    void nobodyAnswersAsJson();
    void ctrlCTellsHowFarItCame();
    void aTerminalShowsTheSettingTried();
    void aSimulatedControllerIsFoundAtOnce();
    void aPortThatIsNotThere();

private:
    static CommandResult scan(const OneFormatLine& line, const QStringList& arguments)
    {
        return runCommand(QStringList{"scan", "--port", line.name()} + arguments);
    }
};

void ScanSearchTest::theRateIsFound()
{
    const OneFormatLine line(38400, false, {1, 5});
    const CommandResult result =
        scan(line, {"--stations", "1,5-6", "--baud", "auto", "--timeout", PATIENT});
    QCOMPARE(result.output,
             (QStringList{"9600 8N1: 0 of 1 station answered", "19200 8N1: 0 of 1 station answered",
                          "38400 8N1: answers", "station 1: answered", "station 5: answered",
                          "2 of 3 stations answered (38400 8N1)"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::theParityIsFound()
{
    const OneFormatLine line(115200, true, {3});
    const CommandResult result = scan(line, {"--stations", "3", "--baud", "115200", "--parity",
                                             "auto", "--timeout", PATIENT, "--stop-bits", "2"});
    QCOMPARE(result.output,
             (QStringList{"115200 8N2: 0 of 1 station answered",
                          "115200 8E2: 0 of 1 station answered", "115200 8O2: answers",
                          "station 3: answered", "1 of 1 station answered (115200 8O2)"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::bothAreFound()
{
    const OneFormatLine line(9600, true, {2});
    const CommandResult result =
        scan(line, {"--stations", "2", "--baud", "auto", "--parity", "auto", "--timeout", "150"});
    // 16 settings, without parity and with even parity.
    QCOMPARE(static_cast<int>(result.output.filter(": 0 of 1 station answered").size()), 16);
    QCOMPARE(result.output.mid(16), (QStringList{"9600 8O1: answers", "station 2: answered",
                                                 "1 of 1 station answered (9600 8O1)"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::laterStationsAreAskedInAllSettings()
{
    const OneFormatLine line(115200, true, {5});
    const CommandResult result = scan(line, {"--stations", "3,5,7", "--baud", "115200", "--parity",
                                             "auto", "--timeout", PATIENT});
    QCOMPARE(
        result.output,
        (QStringList{"115200 8N1: 0 of 1 station answered", "115200 8E1: 0 of 1 station answered",
                     "115200 8O1: 0 of 1 station answered", "115200 8N1: 0 of 2 stations answered",
                     "115200 8E1: 0 of 2 stations answered", "115200 8O1: answers",
                     "station 5: answered", "1 of 3 stations answered (115200 8O1)"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::asJson()
{
    const OneFormatLine line(9600, true, {1});
    CommandResult result =
        scan(line, {"--stations", "1-2", "--parity", "auto", "--timeout", PATIENT, "--json"});
    const QRegularExpression time(R"("millisecondsLeft":\d+,)");
    for (QString& row : result.output)
        row.replace(time, "\"millisecondsLeft\":0,");
    QCOMPARE(result.output,
             (QStringList{R"({"answered":0,"baud":9600,"event":"tried","millisecondsLeft":0,)"
                          R"("parity":"none","stations":1,"stopBits":1})",
                          R"({"answered":0,"baud":9600,"event":"tried","millisecondsLeft":0,)"
                          R"("parity":"even","stations":1,"stopBits":1})",
                          R"({"answer":"value","event":"station","station":1})",
                          R"({"answered":1,"baud":9600,"event":"tried","parity":"odd",)"
                          R"("stations":1,"stopBits":1})",
                          R"({"answered":0,"baud":9600,"event":"tried","parity":"odd",)"
                          R"("stations":1,"stopBits":1})",
                          R"({"answered":1,"baud":9600,"event":"summary","notAsked":0,)"
                          R"("parity":"odd","stations":2,"stopBits":1})"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::nobodyAnswers()
{
    const OneFormatLine line(9600, false, {});
    const CommandResult result =
        scan(line, {"--stations", "1", "--parity", "auto", "--timeout", "20"});
    QCOMPARE(result.output.value(3),
             QStringLiteral("no station answered in 3 settings of the line"));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 1);
}

void ScanSearchTest::nobodyAnswersAsJson()
{
    const OneFormatLine line(9600, false, {});
    const CommandResult result =
        scan(line, {"--stations", "1-2", "--parity", "auto", "--timeout", "20", "--json"});
    QCOMPARE(result.output.value(6),
             QStringLiteral(R"({"answered":0,"event":"summary","notAsked":0,"requests":6})"));
    QCOMPARE(result.exitCode, 1);
}

void ScanSearchTest::ctrlCTellsHowFarItCame()
{
    const OneFormatLine line(9600, false, {});
    RunningWatch scan({"scan", "--port", line.name(), "--baud", "auto", "--stations", "1-9"});
    QVERIFY(scan.waitForOutput("9600 8N1: 0 of 1 station answered\n"));
    scan.sendSignal(SIGINT);
    QCOMPARE(scan.exitCode(), 1);
    const QByteArray output = scan.output();
    QVERIFY2(output.contains("\nno station answered; stopped after "), output.constData());
    QVERIFY2(output.endsWith(" of 72 requests\n"), output.constData());
    QCOMPARE(scan.errors(), QByteArray());
}

void ScanSearchTest::aTerminalShowsTheSettingTried()
{
    const OneFormatLine line(38400, false, {1});
    HostTerminal scan({"scan", "--port", line.name(), "--baud", "auto", "--stations", "1-2",
                       "--timeout", PATIENT});
    QVERIFY(scan.waitFor("] 19200 8N1 2/16, 0 answered, "));
    QVERIFY(scan.waitFor("1 of 2 stations answered (38400 8N1)"));
    QCOMPARE(scan.exitCode(), 0);
    QVERIFY2(!scan.output().contains("0 of 1 station answered"), scan.output().constData());
}

void ScanSearchTest::aSimulatedControllerIsFoundAtOnce()
{
    const CommandResult result =
        runCommand("scan --simulate --stations 1 --baud auto --parity auto");
    QCOMPARE(result.output, (QStringList{"9600 8N1: answers", "station 1: answered",
                                         "1 of 1 station answered (9600 8N1)"}));
    QCOMPARE(result.exitCode, 0);
}

void ScanSearchTest::aPortThatIsNotThere()
{
    const CommandResult result = runCommand("scan --port /dev/no-such-port --baud auto");
    QCOMPARE(result.errors, QStringList{"kxhost: /dev/no-such-port: cannot open the port: No such "
                                        "file or directory"});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 3);
}

QTEST_GUILESS_MAIN(ScanSearchTest)
#include "tst_scan_search.moc"
