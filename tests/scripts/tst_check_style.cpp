// scripts/check-style: what it hands to clang, and that .ci/run fails where it does.

#include "script_sandbox.h"

#include <QtTest/QTest>

namespace
{

const QString FORMAT =
    QStringLiteral("clang-format --dry-run -Werror tools/a.cpp tools/a_b.cpp tools/b.cpp");
const QString CONFIGURE =
    QStringLiteral("cmake -S . -B build/style -DBUILD_TESTING=OFF -DKX_BUILD_WINDOW=ON "
                   "-DKX_HAS_MEMCPY_STRATEGY=OFF -DKX_UNITY=OFF");
const QString CONFIGURE_TOGETHER =
    QStringLiteral("cmake -S . -B build/style-together -DBUILD_TESTING=OFF -DKX_BUILD_WINDOW=ON "
                   "-DKX_HAS_MEMCPY_STRATEGY=OFF -DKX_UNITY=ON -DKX_UNITY_DRIVER=ON "
                   "-DKX_UNITY_SIZE=30");
const QString ALONE = QStringLiteral("clang-tidy --quiet -p build/style ");
const QString TOGETHER = QStringLiteral("clang-tidy --quiet -p build/style-together ");
const QString QUICK = QStringLiteral("--checks=-clang-analyzer-*,-bugprone-use-after-move ");
/// Of three sources it compiles two as one. The tests, which are built beside, call it, too.
const QString CMAKE = QStringLiteral(
    "case $* in *'-B build/style-together '*) ;; *) exit 0 ;; esac\n"
    "batch=build/style-together/Unity/unity_0_cxx.cxx\n"
    "mkdir -p build/style-together/Unity\n"
    "echo \"  \\\"file\\\": \\\"$batch\\\"\" >build/style-together/compile_commands.json\n"
    "printf '#include \"%s\"\\n' $PWD/tools/a.cpp $PWD/tools/a_b.cpp >$batch");

} // namespace

class CheckStyleTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsRun_data();
    void whatIsRun();
    void whatClangRefusesIsAFailure_data();
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
    m_sandbox.addProgram("git", "printf '%s\\n' tools/a.cpp tools/a_b.cpp tools/b.cpp");
    m_sandbox.addProgram("cmake", CMAKE);
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
    const QStringList lint{CONFIGURE, CONFIGURE_TOGETHER,
                           TOGETHER + QUICK + "build/style-together/Unity/unity_0_cxx.cxx",
                           ALONE + QUICK + "tools/b.cpp"};
    QTest::newRow("for every change") << QStringList() << QStringList{FORMAT} + lint;
    QTest::newRow("with the analyzer")
        << QStringList{"all"}
        << QStringList{FORMAT, CONFIGURE, ALONE + "tools/a.cpp tools/a_b.cpp tools/b.cpp"};
    QTest::newRow("clang-tidy only") << QStringList{"lint"} << lint;
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

void CheckStyleTest::whatClangRefusesIsAFailure_data()
{
    QTest::addColumn<QString>("refused"); // the end of what clang-tidy is called with
    QTest::newRow("among what is compiled as one") << "cxx";
    QTest::newRow("in what stands alone") << "/b.cpp";
}

void CheckStyleTest::whatClangRefusesIsAFailure()
{
    QFETCH(QString, refused);
    m_sandbox.addProgram(
        "clang-tidy", QString("case $* in *%1) echo 'tools/a.cpp:1:1: error: wrong'; exit 1;; esac")
                          .arg(refused));
    const ScriptResult result = m_sandbox.run("scripts/check-style", {});
    QVERIFY(result.exitCode != 0);
    QCOMPARE(result.output, QStringList{"tools/a.cpp:1:1: error: wrong"});
    QCOMPARE(calls().filter("clang-tidy").size(), 2); // the others are looked at all the same
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
    QCOMPARE(called.filter("clang-tidy").size(), 2);
}

void CheckStyleTest::whatClangRefusesIsShownBehindTheTests()
{
    m_sandbox.addProgram("clang-tidy", "case $* in */b.cpp) echo 'tools/b.cpp:1:1: error: function "
                                       "too long'; exit 1;; esac");
    const ScriptResult result = m_sandbox.run(".ci/run", {});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.output.last(), QString("== clang-tidy"));
    QCOMPARE(result.errors, QStringList{"tools/b.cpp:1:1: error: function too long"});
    QCOMPARE(calls().filter("--no-tests=error").size(), 3); // each of the three builds is tested
}

void CheckStyleTest::testsThatFailAreAFailure()
{
    m_sandbox.addProgram("ctest", "exit 8");
    QCOMPARE(m_sandbox.run(".ci/run", {}).exitCode, 1);
}

QTEST_GUILESS_MAIN(CheckStyleTest)
#include "tst_check_style.moc"
