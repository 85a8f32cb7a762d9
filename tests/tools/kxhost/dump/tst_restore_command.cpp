// `kxhost restore` as a process, against a simulated controller as a process.

#include "dump_fixture.h"
#include "support/process_signal.h"
#include "tools/kxhost/commands/faulty_kxsim.h"
#include "tools/kxhost/commands/host_terminal.h"
#include "tools/kxhost/commands/modbus_tcp_server.h"

#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

const QStringList TWO_STATIONS = {"--still", "--station", "1", "--station", "2"};
const QStringList SHORT = {"--timeout", "300", "--retries", "1"};
const QStringList YES = {"--yes"};

} // namespace

class RestoreCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void whatDiffersIsWritten();
    void whatDoesNotDifferIsNotWritten();
    void nothingDiffers();
    void inputsAreLeftOut();
    void inputsAloneAreWrongUsage();
    void asJson();
    void valuesThatTheControllerChangesAreNamed();
    void aSilentStationStopsTheRestoreBeforeAnyWrite();
    void aRefusedWriteLeavesTheOthers();
    void aStationThatFallsSilentIsLeftAlone();
    void aLineWithFaults();
    void withoutATerminalYesIsNeeded();
    void answers_data();
    void answers();
    void interruptAtTheQuestion();
    void interruptBetweenWrites();
    void interruptWhileReading();
    void aLineLostInTheMiddle();
};

void RestoreCommandTest::whatDiffersIsWritten()
{
    DumpFixture fixture({"D0=5,6,7", "M2047=1,1", "32CV200@2=4294967295"}, TWO_STATIONS);
    QCOMPARE(fixture.dump({"D0:10", "M2046:4", "32CV200:2@2"}).exitCode, 0);
    for (const char* change : {"D0=0,0", "D9=1", "M2047=0,0", "32CV200@2=1"})
        fixture.controller().tell(QString("set ") + change);
    const CommandResult result = fixture.run("restore", YES);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.output,
             (QStringList{"values: 16, different: 6", "D0:2@1: written", "D9@1: written",
                          "M2047@1: written", "M2048@1: written", "32CV200@2: written",
                          "written: 6; all values are as in " + fixture.path()}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(fixture.controller().ask("get D0:10"), QString("D0=5,6,7,0,0,0,0,0,0,0"));
    QCOMPARE(fixture.controller().ask("get M2046:4"), QString("M2046=0,1,1,0"));
    QCOMPARE(fixture.controller().ask("get 32CV200:2@2"), QString("32CV200@2=4294967295,0"));
    QCOMPARE(fixture.run("compare").exitCode, 0);
}

// As the requests show: function 0x10 for two registers, 6 for one, and none for D2.
void RestoreCommandTest::whatDoesNotDifferIsNotWritten()
{
    DumpFixture fixture({"D0=5,6,7,8"});
    QCOMPARE(fixture.dump({"D0:4"}).exitCode, 0);
    fixture.controller().tell("set D0=0,0");
    fixture.controller().tell("set D3=0");
    const CommandResult result = fixture.run("restore", {"--yes", "--frames"});
    QStringList requests;
    for (const QString& line : result.output) {
        if (line.contains(" request ") && !line.contains("function 03"))
            requests << line.section(" request ", 1).section(", CRC", 0, 0);
    }
    QCOMPARE(requests,
             (QStringList{"station 01, function 10, address 00 00, quantity 00 02, byte count 04, "
                          "data 00 05 00 06",
                          "station 01, function 06, address 00 03, value 00 08"}));
}

void RestoreCommandTest::nothingDiffers()
{
    const DumpFixture fixture({"D0=5"}, {"--still", "--log"});
    QCOMPARE(fixture.dump({"D0:4"}).exitCode, 0);
    const CommandResult result = fixture.run("restore", YES);
    QCOMPARE(result.output, (QStringList{"values: 4, different: 0",
                                         "written: 0; all values are as in " + fixture.path()}));
    QCOMPARE(result.exitCode, 0);
}

void RestoreCommandTest::inputsAreLeftOut()
{
    DumpFixture fixture({"D0=5", "X7=1,1,1"});
    QCOMPARE(fixture.dump({"D0", "X6:4"}).exitCode, 0);
    fixture.controller().tell("set X7=0");
    fixture.controller().tell("set D0=0");
    const CommandResult result = fixture.run("restore", YES);
    QCOMPARE(result.output, (QStringList{"X6:4@1: left out, since inputs cannot be written",
                                         "values: 1, different: 1", "D0@1: written",
                                         "written: 1; all values are as in " + fixture.path()}));
    QCOMPARE(result.exitCode, 0);
}

void RestoreCommandTest::inputsAloneAreWrongUsage()
{
    const DumpFixture fixture({});
    QCOMPARE(fixture.dump({"X0:4"}).exitCode, 0);
    const CommandResult result = fixture.run("restore", YES);
    QCOMPARE(result.errors, QStringList{"kxhost: " + fixture.path()
                                        + ": holds inputs alone, which cannot be written"});
    QCOMPARE(result.exitCode, 2);
}

void RestoreCommandTest::asJson()
{
    DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0:2", "X7"}).exitCode, 0);
    fixture.controller().tell("set D0=6");
    const CommandResult result = fixture.run("restore", {"--yes", "--json"});
    QCOMPARE(
        result.output,
        (QStringList{R"({"address":"X7","count":1,"event":"leftOut","station":1})",
                     R"({"address":"D0","controller":6,"event":"difference","file":5,"station":1})",
                     R"({"address":"D0","count":1,"event":"write","station":1})",
                     R"({"complete":true,"different":1,"event":"restore","file":")" + fixture.path()
                         + R"(","left":0,"values":2,"written":1})"}));
    QCOMPARE(result.exitCode, 0);
}

// A wave sets its register anew at once, whatever is written there.
void RestoreCommandTest::valuesThatTheControllerChangesAreNamed()
{
    DumpFixture fixture({"D0=9,9"});
    QCOMPARE(fixture.dump({"D0:2"}).exitCode, 0);
    DumpFixture moving({"D1=9"}, {"--still", "--wave", "D0=1..1/10s"});
    moving.store(fixture.stored());
    const CommandResult result = moving.run("restore", YES);
    QCOMPARE(result.output,
             (QStringList{"values: 2, different: 1", "D0@1: written",
                          "1 D0 file 9 controller 1, written, but not kept by the controller"}));
    QCOMPARE(result.errors, QStringList{"kxhost: 1 of 2 values are not as in " + moving.path()});
    QCOMPARE(result.exitCode, 1);
}

void RestoreCommandTest::aSilentStationStopsTheRestoreBeforeAnyWrite()
{
    const DumpFixture both({"D0=5"}, TWO_STATIONS);
    QCOMPARE(both.dump({"D0", "D0:2@2"}).exitCode, 0);
    DumpFixture one({"D0=6"});
    one.store(both.stored());
    const CommandResult result = one.run("restore", SHORT + YES);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors,
             (QStringList{"kxhost: D0:2@2: no reply",
                          "kxhost: restore of " + one.path()
                              + " stopped: not all values could be read; nothing was written"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(one.controller().ask("get D0"), QString("D0=6"));
}

void RestoreCommandTest::aRefusedWriteLeavesTheOthers()
{
    const DumpFixture fixture({"D98=7", "D100=8", "D102=9"});
    QCOMPARE(fixture.dump({"D98:5"}).exitCode, 0);
    ModbusTcpServer server;
    server.refuseWritesTo(100);
    const CommandResult result = runCommand(
        {"restore", fixture.path(), "--yes", "--tcp", server.address(), "--protocol", "tcp"});
    QCOMPARE(result.output,
             (QStringList{"values: 5, different: 3", "D98@1: written",
                          "D100@1: failed: exception 2 (illegal data address)", "D102@1: written",
                          "1 D100 file 8 controller 1234, not written"}));
    QCOMPARE(result.errors, QStringList{"kxhost: 1 of 5 values are not as in " + fixture.path()});
    QCOMPARE(result.exitCode, 1);
}

void RestoreCommandTest::aStationThatFallsSilentIsLeftAlone()
{
    const DumpFixture fixture({"D98@1=7", "D100@1=8", "D102@1=9", "D5@2=6"}, TWO_STATIONS);
    QCOMPARE(fixture.dump({"D98:5", "D5@2"}).exitCode, 0);
    ModbusTcpServer server;
    server.ignoreWritesTo(100);
    const CommandResult result = runCommand(QStringList{"restore", fixture.path(), "--yes", "--tcp",
                                                        server.address(), "--protocol", "tcp"}
                                            + SHORT);
    QCOMPARE(result.output,
             (QStringList{"values: 6, different: 4", "D98@1: written", "D100@1: failed: no reply",
                          "D5@2: written", "1 D100 file 8 controller 1234, not written",
                          "1 D102 file 9 controller 0, not written"}));
    QCOMPARE(result.errors, QStringList{"kxhost: 2 of 6 values are not as in " + fixture.path()});
    QCOMPARE(result.exitCode, 1);
}

void RestoreCommandTest::aLineWithFaults()
{
    const DumpFixture kept({"D0=1,2,3", "D10=4", "32CV200=5", "M2047=1,1", "Y7=1,1"});
    QCOMPARE(kept.dump({"D0:20", "32CV200:3", "M2040:16", "Y0:20"}).exitCode, 0);
    FaultyKxsim kxsim(QStringLiteral("all:0.3"), 70);
    const CommandResult result =
        runCommand({"restore", kept.path(), "--yes", "--port", kxsim.line(), "--timeout", "50",
                    "--retries", "60", "--reopen", "20"});
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(kxsim.ask("get D0:4"), QString("D0=1,2,3,0"));
    QCOMPARE(kxsim.ask("get D10"), QString("D10=4"));
    QCOMPARE(kxsim.ask("get 32CV200:2"), QString("32CV200=5,0"));
    QCOMPARE(kxsim.ask("get M2046:4"), QString("M2046=0,1,1,0"));
    QCOMPARE(kxsim.ask("get Y6:4"), QString("Y6=0,1,1,0"));
    QVERIFY(kxsim.count("requests") > 12);
}

void RestoreCommandTest::withoutATerminalYesIsNeeded()
{
    DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0"}).exitCode, 0);
    fixture.controller().tell("set D0=6");
    const CommandResult result = fixture.run("restore");
    QCOMPARE(result.errors, QStringList{"kxhost: nobody can be asked here; compare first, then "
                                        "restore with --yes"});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(fixture.controller().ask("get D0"), QString("D0=6"));
}

void RestoreCommandTest::answers_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("lastLine"); ///< %1 is the file
    QTest::addColumn<QString>("value");

    const QByteArray written = "written: 1; all values are as in ";
    const QByteArray refused = "stopped: not agreed; nothing was written";
    QTest::newRow("y") << QByteArray("y\n") << 0 << written << "D0=5";
    QTest::newRow("Yes") << QByteArray("Yes\n") << 0 << written << "D0=5";
    QTest::newRow("n") << QByteArray("n\n") << 1 << refused << "D0=6";
    QTest::newRow("Enter alone") << QByteArray("\n") << 1 << refused << "D0=6";
    QTest::newRow("another word") << QByteArray("yesterday\n") << 1 << refused << "D0=6";
    QTest::newRow("Ctrl-D: the end of the input") << QByteArray("\x04") << 1 << refused << "D0=6";
}

void RestoreCommandTest::answers()
{
    QFETCH(QByteArray, keys);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, lastLine);
    QFETCH(QString, value);
    DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0:3"}).exitCode, 0);
    fixture.controller().tell("set D0=6");
    HostTerminal terminal({"restore", fixture.path(), "--port", fixture.port()});
    QVERIFY2(terminal.waitFor("Write 1 value to station 1? [y/N] "), terminal.output().constData());
    QVERIFY(terminal.output().contains("values: 3, different: 1\r\n"));
    terminal.type(keys);
    QCOMPARE(terminal.exitCode(), exitCode);
    QVERIFY2(terminal.output().contains(lastLine), terminal.output().constData());
    QCOMPARE(fixture.controller().ask("get D0"), value);
}

void RestoreCommandTest::interruptAtTheQuestion()
{
    DumpFixture fixture({"D0=5"});
    QCOMPARE(fixture.dump({"D0"}).exitCode, 0);
    fixture.controller().tell("set D0=6");
    HostTerminal terminal({"restore", fixture.path(), "--port", fixture.port()});
    QVERIFY(terminal.waitFor("Write 1 value to station 1? [y/N] "));
    terminal.type("\x03");
    QCOMPARE(terminal.exitCode(), 1);
    QVERIFY2(terminal.output().contains("stopped: interrupted; nothing was written"),
             terminal.output().constData());
    QCOMPARE(fixture.controller().ask("get D0"), QString("D0=6"));
}

// Every other register, so that each takes a request.
void RestoreCommandTest::interruptBetweenWrites()
{
    DumpFixture fixture({}, SLOWLY);
    QCOMPARE(fixture.dump({"D0:400"}).exitCode, 0);
    for (int address = 0; address < 400; address += 2)
        fixture.controller().tell(QString("set D%1=1").arg(address));
    QProcess host;
    host.start(KX_HOST_PROGRAM, {"restore", fixture.path(), "--port", fixture.port(), "--yes"});
    QByteArray output;
    while (!output.contains("D4@1: written\n") && host.waitForReadyRead())
        output += host.readAllStandardOutput();
    QVERIFY(signalProcess(host.processId(), SIGINT));
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitCode(), 1);
    output += host.readAllStandardOutput();
    const int written = static_cast<int>(output.count(": written\n"));
    QVERIFY(written >= 3 && written < 200);
    const QByteArray errors = host.readAllStandardError();
    const QString told =
        QString(" stopped: interrupted; %1 of 200 values were written").arg(written);
    QVERIFY2(errors.contains(told.toUtf8()), errors.constData());
    // Registers 0, 2, 4 ... have got the file's 0, as many as was told; the next one perhaps.
    const int last = 2 * (written - 1);
    QCOMPARE(fixture.controller().ask(QString("get D%1").arg(last)), QString("D%1=0").arg(last));
    QCOMPARE(fixture.controller().ask(QString("get D%1").arg(last + 4)),
             QString("D%1=1").arg(last + 4));
}

// Station 1 answers, and station 2 is waited for when the signal comes.
void RestoreCommandTest::interruptWhileReading()
{
    const DumpFixture both({}, TWO_STATIONS);
    QCOMPARE(both.dump({"D0", "D0@2"}).exitCode, 0);
    const DumpFixture fixture({"D0=6"});
    fixture.store(both.stored());
    QProcess host;
    host.start(KX_HOST_PROGRAM, {"restore", fixture.path(), "--port", fixture.port(), "--yes",
                                 "--frames", "--timeout", "10000"});
    QVERIFY(host.waitForReadyRead());
    QVERIFY(signalProcess(host.processId(), SIGINT));
    QVERIFY(host.waitForFinished());
    QCOMPARE(QString::fromUtf8(host.readAllStandardError()),
             "kxhost: restore of " + fixture.path()
                 + " stopped: interrupted; nothing was written\n");
    QCOMPARE(host.exitCode(), 1);
}

void RestoreCommandTest::aLineLostInTheMiddle()
{
    const DumpFixture before({});
    QCOMPARE(before.dump({"D0:400"}).exitCode, 0);
    QStringList presets;
    for (int address = 0; address < 400; address += 2)
        presets << QString("D%1=1").arg(address);
    auto fixture = std::make_unique<DumpFixture>(presets, SLOWLY);
    const QByteArray kept = before.stored();
    QProcess host;
    host.start(KX_HOST_PROGRAM, {"restore", before.path(), "--port", fixture->port(), "--yes"});
    QByteArray output;
    while (!output.contains("D4@1: written\n") && host.waitForReadyRead())
        output += host.readAllStandardOutput();
    fixture.reset();
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitCode(), 1);
    output += host.readAllStandardOutput();
    const int written = static_cast<int>(output.count(": written\n"));
    const QByteArray errors = host.readAllStandardError();
    const QString told = QString("; %1 of 200 values were written").arg(written);
    QVERIFY2(errors.contains(told.toUtf8()), errors.constData());
    QVERIFY2(errors.contains(", perhaps also D"), errors.constData());
    QCOMPARE(before.stored(), kept);
}

QTEST_GUILESS_MAIN(RestoreCommandTest)
#include "tst_restore_command.moc"
