// The program as a person starts and ends it.

#include "support/process_signal.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

namespace
{

QProcessEnvironment withSilentResolver(QProcessEnvironment environment)
{
    environment.insert("LD_PRELOAD", KX_SILENT_RESOLVER);
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":verify_asan_link_order=0");
    return environment;
}

bool hasOpen(const QProcess& program, const QString& path)
{
    const QString files = "/proc/" + QString::number(program.processId()) + "/fd";
    for (int file = 3; file < 100; ++file) {
        if (QFile::symLinkTarget(files + '/' + QString::number(file)) == path)
            return true;
    }
    return false;
}

/// Whether the program has a handler for the signal now.
bool catches(const QProcess& program, int signal)
{
    QFile status("/proc/" + QString::number(program.processId()) + "/status");
    if (!status.open(QIODevice::ReadOnly))
        return false;
    const QString caught = QString::fromLatin1(status.readAll()).section("SigCgt:", 1);
    return (caught.section('\n', 0, 0).trimmed().toULongLong(nullptr, 16) >> (signal - 1) & 1) != 0;
}

QString endOf(QProcess* program)
{
    return QStringLiteral("%1 %2: %3")
        .arg(program->exitStatus() == QProcess::CrashExit ? "signal" : "exit code")
        .arg(program->exitCode())
        .arg(QString::fromLocal8Bit(program->readAllStandardError()));
}

/// Without what Qt says that it could not draw while the display went away.
QByteArray withoutDrawing(const QByteArray& errors)
{
    QByteArray left;
    for (const QByteArray& line : errors.split('\n')) {
        if (!line.isEmpty() && !line.startsWith("qt.qpa.xcb: "))
            left += line + '\n';
    }
    return left;
}

} // namespace

class KxpanelTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutADisplay_data();
    void withoutADisplay();
    void wrongUsageNeedsNoDisplay();
    void signalsCloseTheWindow_data();
    void signalsCloseTheWindow();
    void whoEndsTheSessionIsNotAsked_data();
    void whoEndsTheSessionIsNotAsked();
    void aSessionsEndMaySendTwoSignals_data();
    void aSessionsEndMaySendTwoSignals();
    void aNameServerThatDoesNotAnswerHoldsNothingUp();
    void itEndsWithItsDisplay();
    void aProjectThatCannotBeReadEndsNothing_data();
    void aProjectThatCannotBeReadEndsNothing();

private:
    QProcessEnvironment environment() const;
    void start(QProcess* panel, const QStringList& arguments) const;

    QTemporaryDir m_folder;
};

QProcessEnvironment KxpanelTest::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    environment.insert("XDG_CONFIG_HOME", m_folder.path());
    return environment;
}

void KxpanelTest::start(QProcess* panel, const QStringList& arguments) const
{
    panel->setProcessEnvironment(environment());
    panel->start(KXPANEL_PROGRAM, arguments);
    QVERIFY(panel->waitForStarted());
}

void KxpanelTest::withoutADisplay_data()
{
    QTest::addColumn<QString>("display");
    QTest::newRow("none is named") << "";
    QTest::newRow("nobody listens there") << ":59077"; // small numbers may be of real ones
}

void KxpanelTest::withoutADisplay()
{
    QFETCH(QString, display);
    QProcess panel;
    QProcessEnvironment environment = this->environment();
    if (!display.isEmpty())
        environment.insert("DISPLAY", display);
    panel.setProcessEnvironment(environment);
    panel.start(KXPANEL_PROGRAM, {"--simulate"});
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(panel.exitCode(), 3);
    const QByteArray error = panel.readAllStandardError();
    QVERIFY2(error.startsWith("kxpanel: cannot open a window: no display"), error.constData());
    QCOMPARE(error.count('\n'), 1);
}

void KxpanelTest::wrongUsageNeedsNoDisplay()
{
    QProcess panel;
    start(&panel, {"-style", "fusion", "--nosuch"});
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitCode(), 2);
    QCOMPARE(panel.readAllStandardError(),
             QByteArray("kxpanel: Unknown option 'nosuch'; kxpanel --help lists the options\n"));
}

void KxpanelTest::signalsCloseTheWindow_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("of Ctrl-C") << SIGINT;
    QTest::newRow("of a service manager") << SIGTERM;
}

void KxpanelTest::signalsCloseTheWindow()
{
    QFETCH(int, signal);
    const QString settings = m_folder.filePath("kxpanel/kxpanel.conf");
    QFile::remove(settings);
    KxsimProcess simulator;
    QProcess panel;
    start(&panel, {"-platform", "offscreen", "--port", simulator.portName()});
    // Connected: it has the port open.
    QTRY_VERIFY_WITH_TIMEOUT(hasOpen(panel, simulator.portName()), 20000);
    signalProcess(panel.processId(), signal);
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(panel.exitCode(), 0);
    QVERIFY(QFile::exists(settings)); // the window's place was kept
}

void KxpanelTest::whoEndsTheSessionIsNotAsked_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("of Ctrl-C") << SIGINT << true;
    QTest::newRow("of a terminal that is closed") << SIGHUP << true;
    QTest::newRow("of a computer that shuts down") << SIGTERM << false;
}

// Its values are not saved.
void KxpanelTest::whoEndsTheSessionIsNotAsked()
{
    QFETCH(int, signal);
    QFETCH(bool, isAsked);
    QFile tags(m_folder.filePath("tags.csv"));
    QVERIFY(tags.open(QIODevice::WriteOnly));
    tags.write("name,address\nflow,D100\n");
    tags.close();
    KxsimProcess simulator;
    QProcess panel;
    start(&panel, {"-platform", "offscreen", "--port", simulator.portName(), tags.fileName()});
    QTRY_VERIFY_WITH_TIMEOUT(hasOpen(panel, simulator.portName()), 20000);
    signalProcess(panel.processId(), signal);
    if (isAsked) {
        QTRY_VERIFY_WITH_TIMEOUT(!catches(panel, signal), 20000); // it was taken
        QVERIFY2(!panel.waitForFinished(500), qPrintable(endOf(&panel)));
        signalProcess(panel.processId(), signal); // a second one ends it at once
        QVERIFY(panel.waitForFinished());
        QCOMPARE(panel.exitStatus(), QProcess::CrashExit);
        return;
    }
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(panel.exitCode(), 0);
}

void KxpanelTest::aSessionsEndMaySendTwoSignals_data()
{
    QTest::addColumn<bool>("isHeldUp");
    QTest::newRow("one after the other") << false;
    QTest::newRow("both at once") << true;
}

void KxpanelTest::aSessionsEndMaySendTwoSignals()
{
    QFETCH(bool, isHeldUp);
    KxsimProcess simulator;
    QProcess panel;
    start(&panel, {"-platform", "offscreen", "--port", simulator.portName()});
    QTRY_VERIFY_WITH_TIMEOUT(hasOpen(panel, simulator.portName()), 20000);
    if (isHeldUp)
        signalProcess(panel.processId(), SIGSTOP);
    signalProcess(panel.processId(), SIGTERM);
    if (!isHeldUp)
        QTRY_VERIFY_WITH_TIMEOUT(!catches(panel, SIGTERM), 20000);
    signalProcess(panel.processId(), SIGHUP);
    if (isHeldUp)
        signalProcess(panel.processId(), SIGCONT);
    QTRY_COMPARE_WITH_TIMEOUT(panel.state(), QProcess::NotRunning, 20000);
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(panel.exitCode(), 0);
}

void KxpanelTest::aNameServerThatDoesNotAnswerHoldsNothingUp()
{
    const QString settings = m_folder.filePath("kxpanel/kxpanel.conf");
    QFile::remove(settings);
    QProcess panel;
    panel.setProcessEnvironment(withSilentResolver(environment()));
    panel.start(KXPANEL_PROGRAM, {"-platform", "offscreen", "--tcp", "silent.example"});
    QVERIFY(panel.waitForStarted()); // before that, it has the handlers of this test
    QTRY_VERIFY_WITH_TIMEOUT(catches(panel, SIGTERM), 20000);
    QVERIFY(!panel.waitForFinished(500)); // it asks the name server
    signalProcess(panel.processId(), SIGTERM);
    QVERIFY(panel.waitForFinished(10000));
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(panel.exitCode(), 0);
    QVERIFY(QFile::exists(settings));
}

void KxpanelTest::itEndsWithItsDisplay()
{
    QProcess screen;
    screen.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"});
    QVERIFY2(screen.waitForStarted(), "Xvfb is missing; scripts/install-dependencies test");
    QVERIFY(screen.waitForReadyRead());
    QProcess panel;
    QProcessEnvironment environment = this->environment();
    environment.insert("DISPLAY", ':' + QString::fromLatin1(screen.readLine()).trimmed());
    panel.setProcessEnvironment(environment);
    KxsimProcess simulator;
    panel.start(KXPANEL_PROGRAM, {"-platform", "xcb", "--port", simulator.portName()});
    QTRY_VERIFY_WITH_TIMEOUT(hasOpen(panel, simulator.portName()), 20000);
    screen.kill();
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitStatus(), QProcess::NormalExit);
    QCOMPARE(withoutDrawing(panel.readAllStandardError()),
             QByteArray("kxpanel: the display has gone away; the window is closed, and what was "
                        "not saved is lost\n"));
    QCOMPARE(panel.exitCode(), 3);
    QVERIFY(screen.waitForFinished());
}

void KxpanelTest::aProjectThatCannotBeReadEndsNothing_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("it is not there") << QByteArray();
    QTest::newRow("it is broken") << QByteArray("{\"format\": ");
}

void KxpanelTest::aProjectThatCannotBeReadEndsNothing()
{
    QFETCH(QByteArray, content);
    const QString path = m_folder.filePath("a.kxpanel");
    QFile::remove(path);
    if (!content.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QProcess panel;
    start(&panel, {"-platform", "offscreen", "--project", path});
    QVERIFY2(!panel.waitForFinished(1500), qPrintable(endOf(&panel)));
    signalProcess(panel.processId(), SIGTERM);
    QVERIFY(panel.waitForFinished());
    QCOMPARE(panel.exitCode(), 0);
}

QTEST_GUILESS_MAIN(KxpanelTest)
#include "tst_kxpanel.moc"
