// tests/mutation/run: it tells which rows of equivalent.txt explain nothing. Changes
// themselves take minutes.

#include "script_sandbox.h"

#include <QtTest/QTest>

class MutationRunTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsThatExplainNoChange_data();
    void rowsThatExplainNoChange();
};

void MutationRunTest::rowsThatExplainNoChange_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("isReported");
    QTest::newRow("a change that can be made")
        << "data/a.cpp | 14 | return 1 < b; | < becomes <=" << false;
    QTest::newRow("the line has changed")
        << "data/a.cpp | 14 | return 2 < b; | < becomes <=" << true;
    QTest::newRow("another column") << "data/a.cpp | 13 | return 1 < b; | < becomes <=" << true;
    QTest::newRow("no such change") << "data/a.cpp | 14 | return 1 < b; | < becomes >" << true;
    QTest::newRow("the file is gone") << "data/b.cpp | 14 | return 1 < b; | < becomes <=" << true;
}

void MutationRunTest::rowsThatExplainNoChange()
{
    QFETCH(QString, row);
    QFETCH(bool, isReported);
    ScriptSandbox sandbox;
    sandbox.addText("data/a.cpp", "bool isMore(int b)\n{\n    return 1 < b;\n}\n");
    sandbox.addText("tests/mutation/equivalent.txt", "# FILE | ...\n\n" + row + " | only slower\n");
    sandbox.addProgram("git", "echo data/a.cpp");
    sandbox.addProgram("cmake", "exit 1"); // nothing is to be built here
    const ScriptResult result = sandbox.run("tests/mutation/run", {"data/a.cpp"});
    QCOMPARE(result.output.filter("equivalent.txt"),
             isReported ? QStringList{"equivalent.txt explains what no change is: " + row}
                        : QStringList());
}

QTEST_GUILESS_MAIN(MutationRunTest)
#include "tst_mutation_run.moc"
