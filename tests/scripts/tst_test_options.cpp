// ./test: which runs its options choose, and what it hands on to ctest.

#include "script_sandbox.h"

#include <QtTest/QTest>

class OptionsTestTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void runsAreChosen_data();
    void runsAreChosen();
    void optionsOfCtestAreHandedOn_data();
    void optionsOfCtestAreHandedOn();
    void wrongUsage_data();
    void wrongUsage();
    void aPatternThatMatchesNothingFails();
    void aPatternNeedsToMatchInOneRunOnly();
    void aFailedBuildEndsIt();

private:
    /// How the tests were run, without the question that precedes, how many there are.
    QStringList testRuns();

    ScriptSandbox m_sandbox;
};

void OptionsTestTest::init()
{
    m_sandbox.addProgram("ctest");
    m_sandbox.addProgram("cmake");
    m_sandbox.addProgram("nproc", "echo 3");
    m_sandbox.calls();
}

QStringList OptionsTestTest::testRuns()
{
    QStringList runs;
    for (const QString& call : m_sandbox.calls().filter("ctest ")) {
        if (!call.endsWith(" -N"))
            runs << call;
    }
    return runs;
}

void OptionsTestTest::runsAreChosen_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");
    const QString qt5 = "ctest --test-dir build/test-qt5 -j 6 --output-on-failure --no-tests=error";
    const QString qt6 = "ctest --test-dir build/test-qt6 -j 6 --output-on-failure --no-tests=error";
    const QString sanitize = "ctest --preset sanitize -j 6 --no-tests=error";
    const QString sanitizeQt6 = "ctest --preset sanitize-qt6 -j 6 --no-tests=error";
    const QString installedQt6 = "ctest --test-dir build/test-qt6 -j 6 --output-on-failure "
                                 "-L as_installed --no-tests=error";
    QTest::newRow("nothing said") << QStringList() << QStringList{qt5};
    QTest::newRow("Qt 5") << QStringList{"--qt", "5"} << QStringList{qt5};
    QTest::newRow("Qt 6") << QStringList{"--qt", "6"} << QStringList{qt6};
    QTest::newRow("Qt 6 in one word") << QStringList{"--qt=6"} << QStringList{qt6};
    QTest::newRow("sanitizers") << QStringList{"--sanitize"} << QStringList{sanitize};
    QTest::newRow("all") << QStringList{"--all"} << QStringList{sanitizeQt6, installedQt6, qt5};
}

void OptionsTestTest::runsAreChosen()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    const ScriptResult result = m_sandbox.run("test", arguments);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(testRuns(), expected);
}

void OptionsTestTest::optionsOfCtestAreHandedOn_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("handedOn"); // behind what the script says itself
    QTest::newRow("a pattern") << QStringList{"-R", "reply"} << "-R reply";
    QTest::newRow("a pattern with a dash") << QStringList{"-R", "--all"} << "-R --all";
    QTest::newRow("patterns and labels")
        << QStringList{"-E", "a", "-L", "b", "-LE", "c"} << "-E a -L b -LE c";
    QTest::newRow("jobs of one's own come last") << QStringList{"-j", "2"} << "-j 2";
    QTest::newRow("jobs in one word") << QStringList{"-j12"} << "-j 12";
    QTest::newRow("switches")
        << QStringList{"-V",
                       "-VV",
                       "-Q",
                       "--progress",
                       "--rerun-failed",
                       "--stop-on-failure",
                       "--schedule-random"}
        << "-V -VV -Q --progress --rerun-failed --stop-on-failure --schedule-random";
    QTest::newRow("repetitions") << QStringList{"--repeat", "until-fail:3", "--timeout", "9"}
                                 << "--repeat until-fail:3 --timeout 9";
    QTest::newRow("anything behind --")
        << QStringList{"-V", "--", "--print-labels", "--all"} << "-V --print-labels --all";
}

void OptionsTestTest::optionsOfCtestAreHandedOn()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, handedOn);
    const QString before = "ctest --preset sanitize -j 6 ";
    // Wherever its own option stands.
    QStringList inFront = arguments;
    inFront.prepend("--sanitize");
    QCOMPARE(m_sandbox.run("test", inFront).exitCode, 0);
    QCOMPARE(testRuns(), QStringList{before + handedOn + " --no-tests=error"});
    if (arguments.contains("--"))
        return;
    QCOMPARE(m_sandbox.run("test", arguments + QStringList{"--sanitize"}).exitCode, 0);
    QCOMPARE(testRuns(), QStringList{before + handedOn + " --no-tests=error"});
}

void OptionsTestTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("fault");
    QTest::newRow("another spelling") << QStringList{"--sanitise"} << "unknown option '--sanitise'";
    QTest::newRow("cut short") << QStringList{"--al"} << "unknown option '--al'";
    QTest::newRow("behind a pattern") << QStringList{"-R", "x", "--al"} << "unknown option '--al'";
    QTest::newRow("a word") << QStringList{"reply"}
                            << "unexpected argument 'reply'; tests are chosen with -R reply";
    QTest::newRow("a Qt of the future") << QStringList{"--qt", "7"} << "--qt is 5 or 6, not '7'";
    QTest::newRow("the same in one word") << QStringList{"--qt=7"} << "--qt is 5 or 6, not '7'";
    QTest::newRow("no Qt") << QStringList{"--qt"} << "--qt takes 5 or 6";
    QTest::newRow("an empty Qt") << QStringList{"--qt="} << "--qt is 5 or 6, not ''";
    QTest::newRow("two choices") << QStringList{"--qt", "6", "--sanitize"}
                                 << "--sanitize and --qt exclude each other";
    QTest::newRow("no pattern") << QStringList{"--all", "-R"} << "-R takes a value";
    QTest::newRow("an empty word")
        << QStringList{""} << "unexpected argument ''; tests are chosen with -R PATTERN";
}

void OptionsTestTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, fault);
    const ScriptResult result = m_sandbox.run("test", arguments);
    QCOMPARE(result.errors,
             QStringList{QString("./test: %1; ./test --help says how it is called").arg(fault)});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.output, QStringList());
    QCOMPARE(m_sandbox.calls(), QStringList());
}

void OptionsTestTest::aPatternThatMatchesNothingFails()
{
    m_sandbox.addProgram("ctest", "echo 'Total Tests: 0'");
    const ScriptResult result = m_sandbox.run("test", {"-R", "nosuchtest"});
    QCOMPARE(result.errors, QStringList{"./test: no test of qt5 is chosen by: -R nosuchtest"});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(testRuns(), QStringList());
}

// Some tests are of one Qt only.
void OptionsTestTest::aPatternNeedsToMatchInOneRunOnly()
{
    m_sandbox.addProgram("ctest", "case $* in *test-qt5*) ;; *) echo 'Total Tests: 0' ;; esac");
    const ScriptResult result = m_sandbox.run("test", {"--all", "-R", "x"});
    QCOMPARE(result.errors, (QStringList{"./test: no test of sanitize-qt6 is chosen by: -R x",
                                         "./test: no test of qt6-installed is chosen by: -R x"}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(testRuns().size(), 1);
}

void OptionsTestTest::aFailedBuildEndsIt()
{
    m_sandbox.addProgram("cmake", "echo 'CMake Error: nothing to build' >&2; exit 1");
    const ScriptResult result = m_sandbox.run("test", {"--all"});
    QCOMPARE(result.errors,
             (QStringList{"1:CMake Error: nothing to build",
                          "The build failed; its whole log is build/sanitize-qt6/build.log"}));
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(testRuns(), QStringList());
}

QTEST_GUILESS_MAIN(OptionsTestTest)
#include "tst_test_options.moc"
