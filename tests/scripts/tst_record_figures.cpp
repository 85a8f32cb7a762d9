// scripts/record-figures: what it keeps of what a command prints.

#include "script_sandbox.h"

#include <QtCore/QDate>
#include <QtTest/QTest>

namespace
{

const QString PAGE = QStringLiteral("docs/figures.md");

QString dated(const QString& section)
{
    return QString(section).replace("TODAY", QDate::currentDate().toString(Qt::ISODate));
}

} // namespace

class RecordFiguresTest : public QObject
{
    Q_OBJECT

private slots:
    void sectionsAreAddedAndReplaced();
    void aTableStandsByItself();
    void aFailureLeavesThePageAsItIs();
    void wrongUsage_data();
    void wrongUsage();
};

void RecordFiguresTest::sectionsAreAddedAndReplaced()
{
    ScriptSandbox sandbox;
    sandbox.addFile("scripts/coverage",
                    "printf 'Building in build/coverage\\nlines: 99.0%%\\nbranches: 95.0%%\\n'");
    sandbox.addFile(
        "tests/long/run",
        "printf 'Building in build/long\\n"
        "5000 exchanges after 10 s: heap 1, resident 2 bytes\\n"
        "exchanges              30000711\\n  accepted             25703839\\n612 s\\n'");
    QCOMPARE(sandbox.run("scripts/record-figures", {"coverage", "soak"}).exitCode, 0);
    sandbox.addFile("scripts/coverage", "echo 'lines: 100.0%'");
    const ScriptResult result = sandbox.run("scripts/record-figures", {"coverage"});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, QStringList{"lines: 100.0%"});
    QCOMPARE(sandbox.text(PAGE), dated("# Figures\n\n"
                                       "## Coverage\n\n"
                                       "`scripts/coverage`, TODAY\n\n"
                                       "```\nlines: 100.0%\n```\n\n"
                                       "## Soak\n\n"
                                       "`tests/long/run soak`, TODAY\n\n"
                                       "```\n"
                                       "exchanges              30000711\n"
                                       "  accepted             25703839\n"
                                       "```\n"));
}

void RecordFiguresTest::aTableStandsByItself()
{
    ScriptSandbox sandbox;
    sandbox.addFile("bench/run", "printf '| What | Measured |\\n|---|---|\\n| CRC | 93 ns |\\n'");
    QCOMPARE(sandbox.run("scripts/record-figures", {"benchmarks"}).exitCode, 0);
    QCOMPARE(sandbox.text(PAGE), dated("# Figures\n\n"
                                       "## Benchmarks\n\n"
                                       "`bench/run --markdown`, TODAY\n\n"
                                       "| What | Measured |\n|---|---|\n| CRC | 93 ns |\n"));
    QCOMPARE(sandbox.calls(), QStringList{"run --markdown"});
}

void RecordFiguresTest::aFailureLeavesThePageAsItIs()
{
    ScriptSandbox sandbox;
    sandbox.addFile("scripts/coverage", "echo 'lines: 100.0%'");
    sandbox.run("scripts/record-figures", {"coverage"});
    const QString before = sandbox.text(PAGE);
    for (const char* const commands : {"echo 'lines: 98.0%'; exit 1", "echo nothing to count"}) {
        sandbox.addFile("scripts/coverage", commands);
        const ScriptResult result = sandbox.run("scripts/record-figures", {"coverage"});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.errors,
                 QStringList{"scripts/record-figures: no figures of scripts/coverage, "
                             "whose section stays as it is"});
        QCOMPARE(sandbox.text(PAGE), before);
    }
}

void RecordFiguresTest::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no section") << QStringList() << "which section? See --list";
    QTest::newRow("a section that is none")
        << QStringList{"coverage", "speed"} << "there is no section 'speed'; see --list";
}

void RecordFiguresTest::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, fault);
    ScriptSandbox sandbox;
    sandbox.addFile("scripts/coverage");
    const ScriptResult result = sandbox.run("scripts/record-figures", arguments);
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.errors.last(), "scripts/record-figures: error: " + fault);
    QCOMPARE(sandbox.calls(), QStringList());
}

QTEST_GUILESS_MAIN(RecordFiguresTest)
#include "tst_record_figures.moc"
