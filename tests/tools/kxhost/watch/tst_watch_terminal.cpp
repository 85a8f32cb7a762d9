#include "tools/kxhost/commands/host_terminal.h"
#include "tools/kxhost/commands/watch_process.h"

#include "support/process_signal.h"

#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

#include <csignal>

using namespace kx;

namespace
{

const char* const FIRST_SCREEN_AGAIN = "\x1b[?1049l";

} // namespace

class WatchTerminalTest : public QObject
{
    Q_OBJECT

private slots:
    void tableIsDrawnInPlaceAndTheTerminalRestored();
    void tableFitsTheTerminal();
    void keysScroll_data();
    void keysScroll();
    void aFilterLeavesRowsOut();
    void controlZGivesTheTerminalBackUntilFg();
    void theTerminalIsTakenAgainAfterAStopThatWasNotSeen();
    void settingsOfTheStartAreRestoredAfterASecondTaking();
    void aSilentStationIsMarkedAboveTheTable();
    void typedAssignmentIsWritten();
    void namesFormatsAndBitsAreTyped();
    void blanksAtTheEndAreOfTextsAlone();
    void typedAssignments_data();
    void typedAssignments();
    void framesAndPlainTerminalsGetLines_data();
    void framesAndPlainTerminalsGetLines();
    void lostLineGivesTheTerminalBackBeforeItIsTold();
};

void WatchTerminalTest::tableIsDrawnInPlaceAndTheTerminalRestored()
{
    const KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, "watch D100"));
    QVERIFY(terminal.waitFor("      1  D        100     100        1234      0x04D2"));
    QVERIFY(terminal.waitFor("ok\x1b[K"));
    QVERIFY(terminal.output().startsWith("\x1b[?1049h\x1b[?25l"));
    QVERIFY(terminal.output().contains("\x1b[H" + simulator.portName().toUtf8() + "  9600 8N1  "));
    QVERIFY(!terminal.echoes());
    terminal.type("\x03"); // Ctrl-C
    QCOMPARE(terminal.exitCode(), 0);
    QVERIFY(terminal.echoes());
    const QByteArray after =
        terminal.output().mid(terminal.output().lastIndexOf(FIRST_SCREEN_AGAIN));
    QVERIFY2(after.contains("        1234      0x04D2"), after.constData());
    QVERIFY2(after.contains(" 0 repeated, 0 failed\r\n"), after.constData());
    QVERIFY(terminal.output().contains("\x1b[?25h"));
}

void WatchTerminalTest::aSilentStationIsMarkedAboveTheTable()
{
    const KxsimProcess simulator;
    HostTerminal terminal(on(simulator, "watch D100@9 --timeout 100 --retries 1"));
    QVERIFY(terminal.waitFor("\x1b[H! station 9 does not answer  "));
    terminal.type("\x03"); // Ctrl-C
    QCOMPARE(terminal.exitCode(), 1);
}

void WatchTerminalTest::tableFitsTheTerminal()
{
    const KxsimProcess simulator;
    HostTerminal terminal(on(simulator, "watch D0:30"), 10);
    // Ten lines: two above, a heading, four rows, their position, two below.
    QVERIFY(terminal.waitFor("rows 1 to 4 of 30\x1b[K"));
    const QByteArray screen = terminal.output().mid(terminal.output().indexOf("\x1b[H\x1b[2J") + 7);
    const QByteArray first = screen.left(screen.indexOf("\x1b[J"));
    QCOMPARE(first.count('\n'), 9);
}

void WatchTerminalTest::keysScroll_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QByteArray>("position");
    QTest::newRow("down") << QByteArray("\x1b[B\x1b[B") << QByteArray("rows 3 to 6 of 30");
    QTest::newRow("a page") << QByteArray("\x1b[6~") << QByteArray("rows 5 to 8 of 30");
    QTest::newRow("the end") << QByteArray("\x1b[F") << QByteArray("rows 27 to 30 of 30");
    QTest::newRow("the wheel, as arrows")
        << QByteArray("\x1bOB\x1bOB\x1bOB") << QByteArray("rows 4 to 7 of 30");
    QTest::newRow("amid an assignment")
        << QByteArray("D1\x1b[B") << QByteArray("rows 2 to 5 of 30");
}

void WatchTerminalTest::keysScroll()
{
    QFETCH(QByteArray, keys);
    QFETCH(QByteArray, position);
    const KxsimProcess simulator;
    HostTerminal terminal(on(simulator, "watch D0:30"), 10);
    QVERIFY(terminal.waitFor("rows 1 to 4 of 30\x1b[K"));
    QVERIFY(terminal.output().contains("\x1b[?1007h")); // the wheel is to send arrows
    terminal.type(keys);
    QVERIFY(terminal.waitFor(position + "\x1b[K"));
}

void WatchTerminalTest::aFilterLeavesRowsOut()
{
    const KxsimProcess simulator;
    HostTerminal terminal(on(simulator, "watch D0:30 M0"));
    QVERIFY(terminal.waitFor("      1  D          0"));
    terminal.type("/m");
    QVERIFY(terminal.waitFor("rows 1 to 1 of 1 that contain m\x1b[K"));
    QVERIFY(terminal.waitFor("filter> m_"));
    terminal.forget();
    QVERIFY(terminal.waitFor("      1  M          0    2000"));
    QVERIFY(!terminal.output().contains("  D  "));
    terminal.forget();
    terminal.type("\x1b"); // Escape
    QVERIFY(terminal.waitFor("      1  D          0"));
    QVERIFY(terminal.waitFor("write> _"));
}

void WatchTerminalTest::controlZGivesTheTerminalBackUntilFg()
{
    KxsimProcess simulator(presets("D100=1234"));
    const auto terminal = HostTerminal::withShell(
        "\"$0\" \"$@\"; echo \"stopped $?\"; read answer; fg >/dev/null; echo \"ended $?\"",
        on(simulator, "watch D100"));
    QVERIFY(terminal->waitFor("0x04D2"));
    QVERIFY(!terminal->echoes());
    terminal->type("\x1a");                        // Ctrl-Z
    QVERIFY(terminal->waitFor("stopped 148\r\n")); // 128 and SIGTSTP
    QVERIFY(terminal->echoes());
    QVERIFY(terminal->output().indexOf(FIRST_SCREEN_AGAIN)
            < terminal->output().indexOf("stopped 148"));
    simulator.tell(QString::fromLatin1("set D100=77"));
    terminal->forget();
    terminal->type("\n"); // lets the shell bring it back
    QVERIFY(terminal->waitFor("\x1b[?1049h"));
    QVERIFY(terminal->waitFor("          77      0x004D"));
    QVERIFY(QTest::qWaitFor([&] { return !terminal->echoes(); }));
    terminal->type("D100=78\r");
    QVERIFY(terminal->waitFor("D100 at station 1: confirmed"));
    terminal->type("\x03"); // Ctrl-C
    QVERIFY(terminal->waitFor("ended 0\r\n"));
    QVERIFY(terminal->echoes());
}

void WatchTerminalTest::theTerminalIsTakenAgainAfterAStopThatWasNotSeen()
{
    const KxsimProcess simulator(presets("D100=1234"));
    const auto terminal = HostTerminal::withShell(
        "\"$0\" \"$@\"; echo \"stopped $?\"; stty sane; fg >/dev/null; echo \"ended $?\"",
        on(simulator, "watch D100"));
    QVERIFY(terminal->waitFor("0x04D2"));
    terminal->forget();
    QVERIFY(signalProcess(terminal->foregroundGroup(), SIGSTOP));
    QVERIFY(terminal->waitFor("stopped 147\r\n")); // 128 and SIGSTOP
    QVERIFY(terminal->waitFor("\x1b[?1049h"));
    QVERIFY(QTest::qWaitFor([&] { return !terminal->echoes(); }));
    terminal->type("\x03"); // Ctrl-C
    QVERIFY(terminal->waitFor("ended 0\r\n"));
    QVERIFY(terminal->echoes());
}

void WatchTerminalTest::settingsOfTheStartAreRestoredAfterASecondTaking()
{
    const KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, "watch D100"));
    QVERIFY(terminal.waitFor("0x04D2"));
    terminal.forget();
    QVERIFY(signalProcess(terminal.foregroundGroup(), SIGCONT));
    QVERIFY(terminal.waitFor("\x1b[?1049h"));
    terminal.type("\x03"); // Ctrl-C
    QCOMPARE(terminal.exitCode(), 0);
    QVERIFY(terminal.echoes());
}

void WatchTerminalTest::typedAssignmentIsWritten()
{
    KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, "watch D100"));
    QVERIFY(terminal.waitFor("0x04D2"));
    terminal.type("D100=");
    QVERIFY(terminal.waitFor("write> D100=_"));
    terminal.type("77\r");
    QVERIFY(terminal.waitFor("D100 at station 1: confirmed"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D100")), QString::fromLatin1("D100=77"));
    QVERIFY(terminal.waitFor("          77      0x004D"));
}

void WatchTerminalTest::namesFormatsAndBitsAreTyped()
{
    QTemporaryFile tags;
    QVERIFY(tags.open());
    QVERIFY(tags.write("name,address,format,scale\npump,D100,s16,0.1\n") > 0);
    tags.close();
    KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, qPrintable("watch " + tags.fileName())));
    QVERIFY(terminal.waitFor("write> _"));
    terminal.type("pump=12.5\r");
    QVERIFY(terminal.waitFor("D100 at station 1: confirmed"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D100")), QString::fromLatin1("D100=125"));
    terminal.type("D200/float,high=12.5\r");
    QVERIFY(terminal.waitFor("D200 at station 1: confirmed"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D200:2")), QString::fromLatin1("D200=16712,0"));
    // The second waits for the first, which it would undo else: 0x4148, 0x4149, 0x414B.
    terminal.type("D200.0=1\rD200.1=1\r");
    QVERIFY(terminal.waitFor("D200.1 at station 1: confirmed; all of D200 was written as 0x414B"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D200")), QString::fromLatin1("D200=16715"));
}

void WatchTerminalTest::blanksAtTheEndAreOfTextsAlone()
{
    KxsimProcess simulator;
    HostTerminal terminal(on(simulator, "watch D100"));
    QVERIFY(terminal.waitFor("write> _"));
    // A is 0x41, a blank 0x20: 0x4120 0x2000.
    terminal.type(" D200/ascii:2=A  \r");
    QVERIFY(terminal.waitFor("D200 at station 1: confirmed"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D200:2")),
             QString::fromLatin1("D200=16672,8192"));
    terminal.type(" D210=77  \r");
    QVERIFY(terminal.waitFor("D210 at station 1: confirmed"));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D210")), QString::fromLatin1("D210=77"));
}

void WatchTerminalTest::typedAssignments_data()
{
    QTest::addColumn<QByteArray>("typed");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no assignment") << QByteArray("D100\r") << QByteArray("D100: not an assignment");
    QTest::newRow("does not fit") << QByteArray("D100=65536\r")
                                  << QByteArray("D100=65536: 65536 does not fit");
    QTest::newRow("an input") << QByteArray("X0=1\r")
                              << QByteArray("X0=1: X0 is an input and cannot be written");
    QTest::newRow("silent station")
        << QByteArray("D100@9=5\r") << QByteArray("D100 at station 9: not written, no reply");
}

void WatchTerminalTest::typedAssignments()
{
    QFETCH(QByteArray, typed);
    QFETCH(QByteArray, message);
    KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, "watch D100 --timeout 30 --retries 1"));
    QVERIFY(terminal.waitFor("0x04D2"));
    terminal.type(typed);
    QVERIFY(terminal.waitFor(message));
    QCOMPARE(simulator.ask(QString::fromLatin1("get D100")), QString::fromLatin1("D100=1234"));
}

void WatchTerminalTest::framesAndPlainTerminalsGetLines_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QByteArray>("kind");
    QTest::newRow("frames") << QByteArray("watch D100 --cycles 1 --frames") << QByteArray("xterm");
    QTest::newRow("JSON") << QByteArray("watch D100 --cycles 1 --json") << QByteArray("xterm");
    QTest::newRow("dumb terminal") << QByteArray("watch D100 --cycles 1") << QByteArray("dumb");
    QTest::newRow("unknown terminal") << QByteArray("watch D100 --cycles 1") << QByteArray();
}

void WatchTerminalTest::framesAndPlainTerminalsGetLines()
{
    QFETCH(QByteArray, arguments);
    QFETCH(QByteArray, kind);
    const KxsimProcess simulator(presets("D100=1234"));
    HostTerminal terminal(on(simulator, arguments.constData()), 24, kind);
    QCOMPARE(terminal.exitCode(), 0);
    QVERIFY(terminal.output().contains("1234"));
    QVERIFY2(!terminal.output().contains('\x1b'), terminal.output().constData());
}

void WatchTerminalTest::lostLineGivesTheTerminalBackBeforeItIsTold()
{
    auto simulator = std::make_unique<KxsimProcess>(presets("D100=1234"));
    HostTerminal terminal(on(*simulator, "watch D100"));
    QVERIFY(terminal.waitFor("0x04D2"));
    simulator.reset();
    QCOMPARE(terminal.exitCode(), 1);
    QVERIFY(terminal.output().indexOf(FIRST_SCREEN_AGAIN)
            < terminal.output().indexOf(": the port was closed or unplugged"));
    QVERIFY(terminal.echoes());
}

QTEST_GUILESS_MAIN(WatchTerminalTest)
#include "tst_watch_terminal.moc"
