// How far something is: each step on a terminal, a line now and then elsewhere.

#include <QtCore/QProcess>
#include <QtTest/QTest>

namespace
{

/// What the shell prints that has the function show_progress.
QByteArray printed(const QString& commands, const QString& program, const QStringList& options)
{
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TERM", "xterm");
    environment.insert("SHELL", "/bin/bash"); // which script starts
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(KX_SOURCES);
    shell.setStandardInputFile(QProcess::nullDevice());
    shell.start(program,
                options
                    + QStringList{"-c", "source scripts/progress.sh; " + commands, "/dev/null"});
    shell.waitForFinished();
    return shell.readAllStandardOutput();
}

QByteArray printedToAPipe(const QString& commands)
{
    return printed(commands, "bash", {});
}

QByteArray printedToATerminal(const QString& commands)
{
    return printed(commands, "script", {"-q"});
}

const QString STEPS = QStringLiteral("show_progress build < <(printf '%s\\n' 5 5 '37 fetched')");
// Eleven seconds pass with each step.
const QString SLOWLY =
    QStringLiteral("read() { SECONDS=$((SECONDS + 11)); builtin read \"$@\"; }; ");

} // namespace

class ProgressTest : public QObject
{
    Q_OBJECT

private slots:
    void aTerminalShowsEachStepInOneLine()
    {
        QCOMPARE(printedToATerminal(STEPS),
                 QByteArray("\r\x1b[Kbuild: 5 %\r\x1b[Kbuild: 37 % fetched\r\x1b[K"));
    }

    void aTerminalThatCannotGoBackGetsNoStepsInOneLine()
    {
        QCOMPARE(printedToATerminal("TERM=dumb; " + STEPS), QByteArray());
    }

    void whatIsDoneSoonIsNotToldToAPipe() { QCOMPARE(printedToAPipe(STEPS), QByteArray()); }

    void aPipeIsToldNowAndThen()
    {
        QCOMPARE(printedToAPipe(SLOWLY + STEPS), QByteArray("build: 5 %\nbuild: 37 % fetched\n"));
    }
};

QTEST_GUILESS_MAIN(ProgressTest)
#include "tst_progress.moc"
