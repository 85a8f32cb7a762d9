// Every script explains itself and refuses what it does not know at once: nothing is
// installed, built or run before.

#include "script_sandbox.h"

#include <QtTest/QTest>

namespace
{

/// As one calls it from the root of the project.
QString called(const QString& script)
{
    return script.contains('/') ? script : "./" + script;
}

} // namespace

class CommandLinesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void helpNamesTheScript_data() { addScripts(); }
    void helpNamesTheScript();
    void unknownOptionsAreWrongUsage_data() { addScripts(); }
    void unknownOptionsAreWrongUsage();
    void wrongUsage_data();
    void wrongUsage();
    void withoutRoomForTemporaryFiles();
    void withoutPseudoTerminals_data();
    void withoutPseudoTerminals();

private:
    void addScripts();

    ScriptSandbox m_sandbox;
};

void CommandLinesTest::initTestCase()
{
    QVERIFY(scriptsOfTheProject().size() >= 20);
}

void CommandLinesTest::addScripts()
{
    QTest::addColumn<QString>("script");
    for (const QString& script : scriptsOfTheProject())
        QTest::newRow(qPrintable(script)) << script;
}

void CommandLinesTest::helpNamesTheScript()
{
    QFETCH(QString, script);
    for (const char* const option : {"--help", "-h"}) {
        const ScriptResult result = m_sandbox.run(script, {option});
        QCOMPARE(result.errors, QStringList());
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(!result.output.filter(called(script)).isEmpty(),
                 qPrintable(result.output.join('\n')));
        QCOMPARE(m_sandbox.calls(), QStringList());
    }
}

void CommandLinesTest::unknownOptionsAreWrongUsage()
{
    QFETCH(QString, script);
    const ScriptResult result = m_sandbox.run(script, {"--nonsense"});
    QCOMPARE(m_sandbox.calls(), QStringList());
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QVERIFY(!result.errors.isEmpty());
    QVERIFY2(result.errors.last().contains(called(script)), qPrintable(result.errors.last()));
}

void CommandLinesTest::wrongUsage_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("fault");
    QTest::newRow("a word too many")
        << "docs/build" << QStringList{"site", "again"} << "unexpected argument 'again'";
    QTest::newRow("a word where an option stands")
        << "bench/run" << QStringList{"markdown"} << "unknown option 'markdown'";
    QTest::newRow("a format that coverage lacks")
        << "scripts/coverage" << QStringList{"xml"} << "unknown argument 'xml'";
    QTest::newRow("a check that is none")
        << "scripts/check-style" << QStringList{"tests"} << "unknown argument 'tests'";
    QTest::newRow("half a command")
        << "scripts/debian-root" << QStringList{"build/some-root"} << "arguments are missing";
    QTest::newRow("no directory") << "scripts/build" << QStringList() << "the directory is missing";
    QTest::newRow("a group of packages that is none")
        << "scripts/install-dependencies" << QStringList{"run", "tests"} << "unknown group 'tests'";
    QTest::newRow("no group") << "scripts/install-dependencies" << QStringList()
                              << "arguments are missing";
    QTest::newRow("a run that is none")
        << "tests/long/run" << QStringList{"soaks"} << "'soaks' is not a run; soak and bursts are";
    QTest::newRow("exchanges that are no number")
        << "tests/long/run" << QStringList{"soak", "many"} << "'many' is not a number of exchanges";
    QTest::newRow("a word for ctest")
        << "scripts/memory-check" << QStringList{"reply"}
        << "unexpected argument 'reply'; tests are chosen with -R reply";
}

void CommandLinesTest::wrongUsage()
{
    QFETCH(QString, script);
    QFETCH(QStringList, arguments);
    QFETCH(QString, fault);
    const ScriptResult result = m_sandbox.run(script, arguments);
    QCOMPARE(result.errors,
             QStringList{QString("%1: %2; %1 --help says how it is called").arg(script, fault)});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(m_sandbox.calls(), QStringList());
}

void CommandLinesTest::withoutRoomForTemporaryFiles()
{
    ScriptSandbox sandbox;
    sandbox.setVariable("TMPDIR", "/proc/nowhere");
    const ScriptResult result = sandbox.run("run", {});
    QCOMPARE(result.errors,
             QStringList{"scripts/install-dependencies: cannot write temporary files to "
                         "/proc/nowhere; set TMPDIR to a folder in which it can"});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(sandbox.calls(), QStringList{"script -qc true /dev/null"}); // looks for a terminal
}

void CommandLinesTest::withoutPseudoTerminals_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("fault");
    QTest::newRow("run") << "run"
                         << "./run: cannot open a pseudo-terminal, which the simulated controller "
                            "needs; mount /dev/pts";
    QTest::newRow("test")
        << "test"
        << "./test: cannot open a pseudo-terminal, which many tests need; mount /dev/pts";
    QTest::newRow("memory-check")
        << "scripts/memory-check"
        << "scripts/memory-check: cannot open a pseudo-terminal, which many "
           "tests need; mount /dev/pts";
}

void CommandLinesTest::withoutPseudoTerminals()
{
    QFETCH(QString, script);
    QFETCH(QString, fault);
    ScriptSandbox sandbox;
    // What it says where there is no /dev/pts.
    sandbox.addProgram("script", "echo script: failed to create pseudo-terminal >&2; exit 1");
    const ScriptResult result = sandbox.run(script, {});
    QCOMPARE(result.errors, QStringList{fault});
    QCOMPARE(result.exitCode, 3);
    QCOMPARE(sandbox.calls(), QStringList{"script -qc true /dev/null"});
}

QTEST_GUILESS_MAIN(CommandLinesTest)
#include "tst_command_lines.moc"
