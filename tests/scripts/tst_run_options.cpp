// ./run: when it adds addresses, a simulated controller and an end of its own to what
// kxhost is called with.

#include "script_sandbox.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

const QString SIMULATED = QStringLiteral("kxhost watch --simulate --cycles 20");
const QString EVERY_TYPE = QStringLiteral(
    " X0:4 Y0:4 M0:4 M2048:2 SM0:2 SM256:2 S0:2 T0 C0 D0:4 SD0 SD256 CV0 32CV200:2 TV0 Z0");

} // namespace

class RunOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsAdded_data();
    void whatIsAdded();
    void wrongUsage_data();
    void wrongUsage();
    void optionsAreThoseOfTheRuntime_data();
    void optionsAreThoseOfTheRuntime();
    void helpNamesEveryOptionOfTheRuntime();
    void aWindow_data();
    void aWindow();
    void aWindowNeedsADisplay();

private:
    /// How kxhost was called.
    QStringList hostCalls() { return m_sandbox.calls().filter(QRegularExpression("^kxhost ")); }

    ScriptSandbox m_sandbox;
};

void RunOptionsTest::init()
{
    m_sandbox.addFile("build/run/bin/kxhost");
    m_sandbox.calls();
}

void RunOptionsTest::whatIsAdded_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("call");
    QTest::newRow("nothing said") << QStringList() << SIMULATED + EVERY_TYPE;
    QTest::newRow("an address") << QStringList{"D100:4"} << SIMULATED + " D100:4";
    QTest::newRow("a value is no address")
        << QStringList{"-t", "500"} << SIMULATED + EVERY_TYPE + " -t 500";
    QTest::newRow("an address behind a value in one word")
        << QStringList{"-t500", "D0"} << SIMULATED + " -t500 D0";
    QTest::newRow("a value with an equals sign is no address")
        << QStringList{"--timeout=500"} << SIMULATED + EVERY_TYPE + " --timeout=500";
    QTest::newRow("a tags file") << QStringList{"--tags", "a.csv"} << SIMULATED + " --tags a.csv";
    QTest::newRow("a tags file in one word")
        << QStringList{"--tags=a.csv"} << SIMULATED + " --tags=a.csv";
    QTest::newRow("an address behind --") << QStringList{"--", "D0"} << SIMULATED + " -- D0";
    QTest::newRow("nothing behind --") << QStringList{"--"} << SIMULATED + EVERY_TYPE + " --";
    QTest::newRow("help is an address behind --")
        << QStringList{"--", "--help"} << SIMULATED + " -- --help";
    QTest::newRow("an end of one's own instead of the default")
        << QStringList{"--cycles", "3"} << "kxhost watch --simulate" + EVERY_TYPE + " --cycles 3";
    QTest::newRow("faults of the simulated line")
        << QStringList{"--fault", "all:0.1"} << SIMULATED + EVERY_TYPE + " --fault all:0.1";
    QTest::newRow("a port") << QStringList{"--port", "/dev/ttyS0"}
                            << "kxhost watch" + EVERY_TYPE + " --port /dev/ttyS0";
    QTest::newRow("a port in one word")
        << QStringList{"-p/dev/ttyS0", "D1"} << "kxhost watch -p/dev/ttyS0 D1";
    QTest::newRow("a gateway") << QStringList{"--tcp", "localhost", "D1"}
                               << "kxhost watch --tcp localhost D1";
    QTest::newRow("a server of Modbus TCP")
        << QStringList{"--tcp", "localhost", "--protocol", "tcp", "D1"}
        << "kxhost watch --tcp localhost --protocol tcp D1";
    QTest::newRow("a port that is the value of another option")
        << QStringList{"--library", "--port"} << SIMULATED + EVERY_TYPE + " --library --port";
}

void RunOptionsTest::whatIsAdded()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, call);
    const ScriptResult result = m_sandbox.run("run", arguments);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(hostCalls(), QStringList{call});
}

void RunOptionsTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no number of cycles") << QStringList{"--cycles"} << "--cycles takes a value";
    QTest::newRow("no time-out") << QStringList{"D0", "-t"} << "-t takes a value";
    QTest::newRow("a value too many") << QStringList{"--json=1"} << "--json takes no value";
    QTest::newRow("cut short") << QStringList{"--cycle", "3"} << "unknown option '--cycle'";
    QTest::newRow("another letter") << QStringList{"-x"} << "unknown option '-x'";
    QTest::newRow("another option with a value")
        << QStringList{"--speed=1"} << "unknown option '--speed=1'";
}

void RunOptionsTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, fault);
    const ScriptResult result = m_sandbox.run("run", arguments);
    QCOMPARE(result.errors,
             QStringList{QString("./run: %1; ./run --help says how it is called").arg(fault)});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(m_sandbox.calls(), QStringList());
}

namespace
{

struct RuntimeOption {
    QStringList names;
    bool takesValue;
};

/// "  -p, --port <PORT>   Serial port ..."
QList<RuntimeOption> optionsOfTheRuntime()
{
    QProcess host;
    host.start(KX_HOST_PROGRAM, {"watch", "--help"});
    host.waitForFinished();
    const QRegularExpression row("^  (-[a-z], )?(--[a-z0-9-]+)( <)?");
    QList<RuntimeOption> options;
    for (const QString& line : QString::fromUtf8(host.readAllStandardOutput()).split('\n')) {
        const QRegularExpressionMatch match = row.match(line);
        if (!match.hasMatch() || match.captured(2) == "--help")
            continue;
        QStringList names = {match.captured(2)};
        if (!match.captured(1).isEmpty())
            names << match.captured(1).left(2);
        options << RuntimeOption{names, !match.captured(3).isEmpty()};
    }
    return options;
}

} // namespace

void RunOptionsTest::optionsAreThoseOfTheRuntime_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("takesValue");
    for (const RuntimeOption& option : optionsOfTheRuntime()) {
        for (const QString& name : option.names)
            QTest::newRow(qPrintable(name)) << name << option.takesValue;
    }
}

// "D7" is the value of an option that takes one, and otherwise an address.
void RunOptionsTest::optionsAreThoseOfTheRuntime()
{
    QFETCH(QString, name);
    QFETCH(bool, takesValue);
    const ScriptResult result = m_sandbox.run("run", {name, "D7"});
    QCOMPARE(result.errors, QStringList());
    const QStringList calls = hostCalls();
    QCOMPARE(calls.size(), 1);
    QVERIFY(calls.first().endsWith(' ' + name + " D7"));
    QCOMPARE(calls.first().contains(EVERY_TYPE), takesValue && name != "--tags");
}

void RunOptionsTest::helpNamesEveryOptionOfTheRuntime()
{
    const QStringList words =
        m_sandbox.run("run", {"--help"}).output.join(' ').split(QRegularExpression("[\\s()]+"));
    const QList<RuntimeOption> options = optionsOfTheRuntime();
    QVERIFY(options.size() > 15);
    for (const RuntimeOption& option : options) {
        for (const QString& name : option.names)
            QVERIFY2(words.contains(name), qPrintable(name));
    }
}

void RunOptionsTest::aWindow_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("call");
    QTest::newRow("nothing said") << QStringList{"--window"}
                                  << "kxpanel --simulate tools/kxpanel/demo/filling.kxpanel";
    QTest::newRow("a line and a file")
        << QStringList{"--window", "--port", "/dev/ttyS0", "line3.csv"}
        << "kxpanel --port /dev/ttyS0 line3.csv";
}

void RunOptionsTest::aWindow()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, call);
    ScriptSandbox sandbox;
    sandbox.setVariable("DISPLAY", ":5");
    sandbox.addFile("build/window/bin/kxpanel");
    const ScriptResult result = sandbox.run("run", arguments);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    const QStringList calls = sandbox.calls();
    QCOMPARE(calls.filter(QRegularExpression("^kxpanel ")), QStringList{call});
    QCOMPARE(calls.filter("--target=kxpanel").size(), 1);
}

void RunOptionsTest::aWindowNeedsADisplay()
{
    ScriptSandbox sandbox;
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        sandbox.setVariable(name, QString());
    const ScriptResult result = sandbox.run("run", {"--window"});
    QCOMPARE(result.errors, QStringList{"./run: a window needs a display; neither DISPLAY nor "
                                        "WAYLAND_DISPLAY is set"});
    QCOMPARE(result.exitCode, 3);
    QCOMPARE(sandbox.calls(), QStringList());
}

QTEST_GUILESS_MAIN(RunOptionsTest)
#include "tst_run_options.moc"
