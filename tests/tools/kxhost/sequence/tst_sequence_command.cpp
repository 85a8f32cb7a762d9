// `kxhost run` as a process, against simulated controllers.

#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/host_terminal.h"
#include "tools/kxhost/commands/watch_process.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

/// A sequence and its tags in a folder of their own.
class SequenceFolder
{
public:
    explicit SequenceFolder(const QByteArray& sequence)
    {
        store("filling.kxs", sequence);
        store("pumps.csv", "name,address,format,scale,unit\n"
                           "pump,Y10,,,\n"
                           "pressure,D10,u16,0.1,bar\n"
                           "level,D7,,,\n");
    }

    QString path(const char* name = "filling.kxs") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }
    QByteArray read(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void store(const char* name, const QByteArray& text) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("%s", name);
    }

private:
    QTemporaryDir m_folder;
};

CommandResult run(const SequenceFolder& folder, const QStringList& arguments)
{
    return runCommand(QStringList{"run", folder.path()} + arguments);
}

/// Rows with # in place of their times, and the folder's file without its path.
QStringList withoutTimes(const SequenceFolder& folder, QStringList lines)
{
    static const QRegularExpression time(QStringLiteral(" *[0-9]+\\.[0-9]+ s"));
    for (QString& line : lines)
        line = line.replace(time, QStringLiteral(" #")).replace(folder.path(), "filling.kxs");
    return lines;
}

} // namespace

class SequenceCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void anAcceptanceTestPasses();
    void theExampleOfTheGuidePasses();
    void whatFailsIsTold();
    void resultsAsJson();
    void allFaultsAreTold();
    void faultsAreCounted();
    void aCheckSendsNothing();
    void theReportTellsWhatWasDone();
    void theReportOfARunThatNeverBegan();
    void aReportThatCannotBeWritten();
    void anInterruptPutsIntoASafeState();
    void anInterruptWithinFinally();
    void aLineThatIsLost();
    void aLineThatIsLostDuringAPause();
    void onATerminalTheStepAtWorkIsShown();
};

void SequenceCommandTest::anAcceptanceTestPasses()
{
    const SequenceFolder folder("tags pumps.csv\n"
                                "write pump = on           # starts the filling\n"
                                "wait pressure > 4.5 within 30s\n"
                                "expect Y10 = on\n"
                                "write D100/float = 12.5\n"
                                "finally\n"
                                "write pump = off\n");
    KxsimProcess controller({"--still", "--wave", "D10=0..60/1s"});
    const CommandResult result = run(folder, {"--port", controller.portName()});
    QCOMPARE(result.errors, QStringList());
    QStringList rows = withoutTimes(folder, result.output);
    rows[1] = rows.at(1).section(QLatin1String("  ("), 0, 0); // any value above 4.5
    QCOMPARE(rows, (QStringList{"passed #  line 2: write pump = on",
                                "passed #  line 3: wait pressure > 4.5 within 30s",
                                "passed #  line 4: expect Y10 = on  (1)",
                                "passed #  line 5: write D100/float = 12.5",
                                "passed #  line 7: write pump = off",
                                "5 of 5 steps passed, 0 failed, 0 skipped, #"}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(controller.ask(QStringLiteral("get Y10")), QStringLiteral("Y10=0"));
    // 12.5 is 0x41480000, the low word first.
    QCOMPARE(controller.ask(QStringLiteral("get D101")), QStringLiteral("D101=16712"));
}

void SequenceCommandTest::theExampleOfTheGuidePasses()
{
    const QString docs = QStringLiteral(KX_DOCS);
    const KxsimProcess controller({"--still", "--set", "D10=50", "--set", "D7=121"});
    const CommandResult result = runCommand(
        {"run", docs + QStringLiteral("/examples/filling.kxs"), "--port", controller.portName()});
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QFile guide(docs + QStringLiteral("/guide/sequences.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    const QByteArray text = guide.readAll();
    for (const char* const shown : {"/examples/filling.kxs", "/examples/tank.csv"}) {
        QFile file(docs + QLatin1String(shown));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(text.contains("```\n" + file.readAll() + "```\n"), shown);
    }
}

void SequenceCommandTest::whatFailsIsTold()
{
    const SequenceFolder folder("tags pumps.csv\nexpect level = 7 +- 1\nwrite level = 9\n");
    const KxsimProcess controller({"--still", "--set", "D7=5"});
    const CommandResult result = run(folder, {"--port", controller.portName()});
    QCOMPARE(withoutTimes(folder, result.output),
             (QStringList{"failed #  line 2: expect level = 7 +- 1  (5)",
                          "skipped              line 3: write level = 9",
                          "0 of 2 steps passed, 1 failed, 1 skipped, #"}));
    QCOMPARE(withoutTimes(folder, result.errors),
             (QStringList{"kxhost: filling.kxs:2: expect level = 7 +- 1: level (D7@1) is 5, "
                          "expected = 7 +- 1"}));
    QCOMPARE(result.exitCode, 1);
}

void SequenceCommandTest::resultsAsJson()
{
    const SequenceFolder folder("expect D7@9 = 5\n");
    const CommandResult result = run(folder, {"--simulate", "--json", "--fault", "silence:1",
                                              "--timeout", "50", "--settle", "0"});
    QStringList output = result.output;
    output.replaceInStrings(QRegularExpression(QStringLiteral("\"milliseconds\":[0-9.]+")),
                            QStringLiteral("\"milliseconds\":0"));
    QCOMPARE(output,
             (QStringList{R"({"address":"D7","event":"step","failure":"D7@9: no reply","line":1,)"
                          R"("milliseconds":0,"outcome":"failed","station":9,)"
                          R"("step":"expect D7@9 = 5"})",
                          R"({"event":"summary","failed":1,"interrupted":false,)"
                          R"("milliseconds":0,"passed":0,"skipped":0,"steps":1})"}));
    QCOMPARE(result.exitCode, 1);
}

void SequenceCommandTest::allFaultsAreTold()
{
    const SequenceFolder folder("tags pumps.csv\nwrite pmup = on\nwrite X0 = 1\npause 5\n");
    const CommandResult result = run(folder, {"--port", "/dev/null"});
    QCOMPARE(withoutTimes(folder, result.errors),
             (QStringList{"kxhost: filling.kxs:2:7: 'pmup' is no tag, and as an address unknown "
                          "register type 'pmup'; the types are X, Y, M, SM, S, T, C, D, SD, CV, "
                          "32CV, TV, Z",
                          "kxhost: filling.kxs:3:10: X0@1 is an input and cannot be written",
                          "kxhost: filling.kxs:4:7: pause 5: must be a time of at most a day with "
                          "its unit, such as 200ms, 10s or 5min"}));
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void SequenceCommandTest::faultsAreCounted()
{
    const SequenceFolder folder(QByteArray("what\n").repeated(52));
    const CommandResult result = run(folder, {"--check"});
    QCOMPARE(result.errors.size(), 51);
    QCOMPARE(withoutTimes(folder, result.errors).last(),
             QStringLiteral("kxhost: filling.kxs: and 2 other faults"));
    QCOMPARE(run(folder, {"--check", "--tags", folder.path("missing.csv")}).errors.size(), 1);
    QCOMPARE(runCommand({"run", folder.path("missing.kxs"), "--check"}).exitCode, 2);
}

void SequenceCommandTest::aCheckSendsNothing()
{
    const SequenceFolder folder("write pump = on\nfinally\npause 1s\n");
    const QStringList check{"--check", "--tags", folder.path("pumps.csv"), "--station", "2"};
    const CommandResult text = run(folder, check);
    QCOMPARE(withoutTimes(folder, text.output),
             (QStringList{"line 1: write pump = on  pump (Y10@2)", "line 3: pause 1s",
                          "filling.kxs: 2 steps, 1 of them in the end"}));
    QCOMPARE(text.exitCode, 0);
    const CommandResult json = run(folder, check + QStringList{"--json"});
    QCOMPARE(json.output,
             (QStringList{R"({"address":"Y10","event":"step","line":1,"name":"pump","station":2,)"
                          R"("step":"write pump = on"})",
                          R"({"event":"step","line":3,"step":"pause 1s"})"}));
}

void SequenceCommandTest::theReportTellsWhatWasDone()
{
    const SequenceFolder folder("expect D7 = 5\nexpect D7 = 6\npause 1s\n");
    folder.store("report.xml", "that of an earlier run");
    const KxsimProcess controller({"--still", "--set", "D7=5"});
    run(folder, {"--port", controller.portName(), "--junit", folder.path("report.xml")});
    const QByteArray report = folder.read("report.xml");
    QVERIFY2(report.contains("<testsuite name=\"filling\" tests=\"3\" failures=\"1\" errors=\"0\" "
                             "skipped=\"1\" "),
             report.constData());
    QVERIFY2(report.contains("<failure message=\"D7@1 is 5, expected = 6\"/>"), report.constData());
}

// It must not pass for the report of the run before.
void SequenceCommandTest::theReportOfARunThatNeverBegan()
{
    const SequenceFolder folder("expect D7 = 5\n");
    folder.store("report.xml", "that of an earlier run");
    const CommandResult result =
        run(folder, {"--port", folder.path("missing"), "--junit", folder.path("report.xml")});
    QCOMPARE(result.exitCode, 3);
    const QByteArray report = folder.read("report.xml");
    QVERIFY2(report.contains("<error message=\"not done: the run did not come to its end\"/>"),
             report.constData());
}

void SequenceCommandTest::aReportThatCannotBeWritten()
{
    const SequenceFolder folder("write D7 = 5\n");
    KxsimProcess controller({"--still"});
    const CommandResult result = run(
        folder, {"--port", controller.portName(), "--junit", folder.path("missing/report.xml")});
    QCOMPARE(result.errors.size(), 1);
    QVERIFY(result.errors.first().startsWith(QLatin1String("kxhost: cannot write the report: ")));
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(controller.ask(QStringLiteral("get D7")), QStringLiteral("D7=0"));
}

void SequenceCommandTest::anInterruptPutsIntoASafeState()
{
    const SequenceFolder folder("write Y10 = on\nwait D7 = 5 within 10min\npause 1s\n"
                                "finally\nwrite Y10 = off\n");
    KxsimProcess controller({"--still"});
    RunningWatch host({"run", folder.path(), "--port", controller.portName(), "--junit",
                       folder.path("report.xml")});
    QVERIFY(host.waitForOutput("line 1: write Y10 = on"));
    host.sendSignal(SIGINT);
    QCOMPARE(host.exitCode(), 1);
    const QStringList rows = withoutTimes(
        folder, QString::fromUtf8(host.output()).split(QLatin1Char('\n'), Qt::SkipEmptyParts));
    QCOMPARE(
        rows.mid(2),
        (QStringList{"skipped              line 3: pause 1s", "passed #  line 5: write Y10 = off",
                     "2 of 4 steps passed, 1 failed, 1 skipped, #; interrupted"}));
    QVERIFY(host.errors().endsWith(
        "kxhost: doing the steps behind finally; Ctrl-C again ends the program at once\n"));
    QCOMPARE(controller.ask(QStringLiteral("get Y10")), QStringLiteral("Y10=0"));
    QVERIFY(folder.read("report.xml").contains("<failure message=\"D7@1: interrupted\"/>"));
}

// The first changes nothing, the second ends the program.
void SequenceCommandTest::anInterruptWithinFinally()
{
    const SequenceFolder folder("write Y10 = on\nfinally\npause 10min\nwrite Y10 = off\n");
    const KxsimProcess controller({"--still"});
    RunningWatch host({"run", folder.path(), "--port", controller.portName(), "--junit",
                       folder.path("report.xml")});
    QVERIFY(host.waitForOutput("line 1: write Y10 = on"));
    host.sendSignal(SIGINT);
    QByteArray errors;
    QTRY_VERIFY((errors += host.errors()).contains("Ctrl-C again ends the program at once"));
    host.sendSignal(SIGINT);
    QCOMPARE(host.exitCode(), -1); // by the signal
    QVERIFY(folder.read("report.xml").contains("errors=\"3\""));
}

void SequenceCommandTest::aLineThatIsLost()
{
    const SequenceFolder folder("wait D7 = 5 within 10min\nfinally\nwrite Y10 = off\n");
    KxsimProcess controller({"--still"});
    RunningWatch host({"run", folder.path(), "--port", controller.portName(), "--frames"});
    QVERIFY(host.waitForOutput("request"));
    controller.exitCodeAfter(SIGTERM);
    QCOMPARE(host.exitCode(), 1);
    const QByteArray errors = host.errors();
    QCOMPARE(errors.count("the port was closed or unplugged"), 2);
}

void SequenceCommandTest::aLineThatIsLostDuringAPause()
{
    const SequenceFolder folder("expect D7 = 0\npause 1s\nexpect D7 = 0\n");
    KxsimProcess controller({"--still"});
    RunningWatch host({"run", folder.path(), "--port", controller.portName()});
    QVERIFY(host.waitForOutput("line 1: expect D7 = 0"));
    controller.exitCodeAfter(SIGTERM);
    QCOMPARE(host.exitCode(), 1);
    const QByteArray errors = host.errors();
    QVERIFY2(errors.contains(":3: expect D7 = 0: D7@1: ")
                 && errors.contains("the port was closed or unplugged"),
             errors.constData());
}

void SequenceCommandTest::onATerminalTheStepAtWorkIsShown()
{
    const SequenceFolder folder("wait D7 = 5 within 10min\n");
    KxsimProcess controller({"--still", "--set", "D7=4"});
    HostTerminal terminal({"run", folder.path(), "--port", controller.portName()});
    QVERIFY(terminal.waitFor("line 1: wait D7 = 5 within 10min  (4)"));
    controller.tell(QStringLiteral("set D7=5"));
    QVERIFY(terminal.waitFor("1 of 1 step passed, 0 failed, 0 skipped"));
    QCOMPARE(terminal.exitCode(), 0);
    QVERIFY(terminal.output().contains("\r\033[Kpassed "));
}

QTEST_GUILESS_MAIN(SequenceCommandTest)
#include "tst_sequence_command.moc"
