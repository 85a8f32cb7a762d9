// The runtime that links libkxruntime talks to the simulated controller.

#include "kxsim_process.h"
#include "runtime_process.h"

#include <QtTest/QTest>

namespace
{

const QString RECIPE = QStringLiteral(KX_SOURCES "/docs/examples/filling.csv");

/// What the runtime prints until all of these lines came, in whatever order, or nothing more does.
QStringList linesUntil(RuntimeProcess* runtime, QStringList wanted)
{
    QStringList lines;
    while (!wanted.isEmpty()) {
        const QString line = runtime->readLine();
        if (line.isEmpty())
            break;
        lines << line;
        wanted.removeOne(line);
    }
    return lines;
}

} // namespace

class RuntimeLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void pollsWritesReadsAndSendsARecipe()
    {
        KxsimProcess simulator({"--still", "--set", "D0=48", "--set", "D101=2,3,4"});
        QVERIFY(!simulator.portName().isEmpty());
        RuntimeProcess runtime(KX_RUNTIME, {simulator.portName(), "D100=1234", RECIPE});
        const QStringList ends = {"written: D100", "read: 1234 2 3 4", "recipe: 3 of 3 blocks"};
        // Polling goes on at the same time, so its lines stand anywhere between.
        const QStringList lines = linesUntil(&runtime, ends + QStringList("D0 = 48"));
        QCOMPARE(lines.filter(":"), ends);
        QVERIFY(lines.contains("D0 = 48"));
        QCOMPARE(simulator.ask("get D100"), QString("D100=1234"));
        QCOMPARE(simulator.ask("get D200"), QString("D200=1500"));
        QCOMPARE(simulator.ask("get Y17"), QString("Y17=1"));
        QCOMPARE(simulator.ask("get 32CV200"), QString("32CV200=100000"));
        simulator.tell("set D0=49");
        // Bits may be told without a change.
        QVERIFY(linesUntil(&runtime, {"D0 = 49"}).contains("D0 = 49"));
        QVERIFY(runtime.isRunning());
    }

    void everythingIsRefused()
    {
        KxsimProcess simulator({"--fault", "exception:1"});
        QVERIFY(!simulator.portName().isEmpty());
        RuntimeProcess runtime(KX_RUNTIME, {simulator.portName(), "D100=1234", RECIPE});
        const QStringList ends = {"not written: exception 6 (busy)", "not read: exception 6 (busy)",
                                  "recipe: 0 of 3 blocks"};
        QCOMPARE(linesUntil(&runtime, ends).filter(":"), ends);
        QVERIFY(runtime.isRunning());
    }

    void wrongArguments_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");
        QTest::newRow("none") << QStringList()
                              << "usage: runtime_library PORT ADDRESS=VALUE RECIPE_FILE";
        QTest::newRow("no such address") << QStringList({"/dev/null", "D8000=1", RECIPE})
                                         << "D8000: out of range; the addresses are D0 to D7999 "
                                            "(decimal)";
        QTest::newRow("no such recipe") << QStringList({"/dev/null", "D0=1", "/no/recipe.csv"})
                                        << "/no/recipe.csv: No such file or directory";
    }

    void wrongArguments()
    {
        QFETCH(QStringList, arguments);
        RuntimeProcess runtime(KX_RUNTIME, arguments);
        QTEST(runtime.errorOutput(), "error");
        QCOMPARE(runtime.exitCode(), 2);
    }

    void noPort()
    {
        RuntimeProcess runtime(KX_RUNTIME, {"/dev/no-such-port", "D0=1", RECIPE});
        QVERIFY2(runtime.errorOutput().startsWith("/dev/no-such-port: "),
                 qPrintable(runtime.errorOutput()));
        QCOMPARE(runtime.exitCode(), 3);
    }
};

QTEST_GUILESS_MAIN(RuntimeLibraryTest)
#include "tst_runtime_library.moc"
