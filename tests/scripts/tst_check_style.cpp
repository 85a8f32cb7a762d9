// scripts/check-style: what it hands to clang, and that .ci/run fails where it does.

#include "script_sandbox.h"

#include <QtTest/QTest>

namespace
{

const QString FORMAT = QStringLiteral("clang-format --dry-run -Werror tools/a.cpp");
const QString CONFIGURE =
    QStringLiteral("cmake -S . -B build/style -DBUILD_TESTING=OFF -DKX_BUILD_WINDOW=ON "
                   "-DKX_HAS_MEMCPY_STRATEGY=OFF");

} // namespace

class CheckStyleTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsRun_data();
    void whatIsRun();
    void whatClangRefusesIsAFailure();
    void nothingIsTestedWhereTheFormatIsWrong();
    void whatClangRefusesIsShownBehindTheTests();
    void testsThatFailAreAFailure();

private:
    /// How the programs that look at sources were called.
    QStringList calls();

    ScriptSandbox m_sandbox;
};

void CheckStyleTest::init()
{
    m_sandbox.addProgram("git", "echo tools/a.cpp");
    for (const char* const worker : {"clang-format", "clang-tidy", "ctest"})
        m_sandbox.addProgram(worker);
    m_sandbox.calls();
}

QStringList CheckStyleTest::calls()
{
    QStringList lookedAt;
    for (const QString& call : m_sandbox.calls()) {
        if (!call.startsWith("dpkg-query") && !call.startsWith("git"))
            lookedAt << call;
    }
    return lookedAt;
}

void CheckStyleTest::whatIsRun_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("for every change")
        << QStringList()
        << QStringList{FORMAT, CONFIGURE,
                       "clang-tidy --quiet -p build/style "
                       "--checks=-clang-analyzer-*,-bugprone-use-after-move tools/a.cpp"};
    QTest::newRow("with the analyzer")
        << QStringList{"all"}
        << QStringList{FORMAT, CONFIGURE, "clang-tidy --quiet -p build/style tools/a.cpp"};
    QTest::newRow("clang-tidy only")
        << QStringList{"lint"}
        << QStringList{CONFIGURE,
                       "clang-tidy --quiet -p build/style "
                       "--checks=-clang-analyzer-*,-bugprone-use-after-move tools/a.cpp"};
    QTest::newRow("formatting only") << QStringList{"format"} << QStringList{FORMAT};
}

void CheckStyleTest::whatIsRun()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, expected);
    const ScriptResult result = m_sandbox.run("scripts/check-style", arguments);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(calls(), expected);
}

void CheckStyleTest::whatClangRefusesIsAFailure()
{
    m_sandbox.addProgram("clang-tidy", "echo 'tools/a.cpp:1:1: error: function too long'; exit 1");
    const ScriptResult result = m_sandbox.run("scripts/check-style", {});
    QVERIFY(result.exitCode != 0);
    QCOMPARE(result.output, QStringList{"tools/a.cpp:1:1: error: function too long"});
}

void CheckStyleTest::nothingIsTestedWhereTheFormatIsWrong()
{
    m_sandbox.addProgram("clang-format", "exit 1");
    QVERIFY(m_sandbox.run(".ci/run", {}).exitCode != 0);
    QVERIFY(calls().filter("ctest").isEmpty());
    m_sandbox.addProgram("clang-format");
    QCOMPARE(m_sandbox.run(".ci/run", {}).exitCode, 0);
    const QStringList called = calls();
    QVERIFY(!called.filter("ctest").isEmpty());
    QCOMPARE(called.filter("clang-format").size(), 1);
    QCOMPARE(called.filter("clang-tidy").size(), 1);
}

void CheckStyleTest::whatClangRefusesIsShownBehindTheTests()
{
    m_sandbox.addProgram("clang-tidy", "echo 'tools/a.cpp:1:1: error: function too long'; exit 1");
    const ScriptResult result = m_sandbox.run(".ci/run", {});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output.last(), QString("== clang-tidy"));
    QCOMPARE(result.errors, QStringList{"tools/a.cpp:1:1: error: function too long"});
    QCOMPARE(calls().filter("--no-tests=error").size(), 3); // each of the three builds is tested
}

void CheckStyleTest::testsThatFailAreAFailure()
{
    m_sandbox.addProgram("ctest", "exit 8");
    QCOMPARE(m_sandbox.run(".ci/run", {}).exitCode, 1);
}

QTEST_GUILESS_MAIN(CheckStyleTest)
#include "tst_check_style.moc"
