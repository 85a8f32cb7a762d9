#include "panel/sequence/junit_report.h"
#include "sequence_fixture.h"

#include <QtCore/QTimeZone>
#include <QtTest/QTest>

using namespace kx;

class JunitReportTest : public QObject
{
    Q_OBJECT

private slots:
    void aRunAsCiServersReadIt();
    void textsThatXmlCannotHold();
};

namespace
{

QDateTime someTime()
{
    return QDateTime(QDate(2026, 11, 22), QTime(10, 0, 5), Qt::UTC);
}

} // namespace

void JunitReportTest::aRunAsCiServersReadIt()
{
    const Sequence sequence = sequenceOf("write pump = on\n\n\n\n\n\n\n\n"
                                         "wait pressure < 4.5 within 1s\n"
                                         "expect level = 7\n"
                                         "finally\n"
                                         "write pump = off\n");
    QList<StepResult> results;
    const QJsonValue none(QJsonValue::Undefined);
    results << StepResult{0, StepOutcome::Passed, QString(), none, QString(), 21000}
            << StepResult{1,
                          StepOutcome::Failed,
                          QStringLiteral("5.1 bar"),
                          5.1,
                          QStringLiteral("pressure (D100@1) is 5.1 bar, expected < 4.5"),
                          1000000}
            << StepResult{2, StepOutcome::Skipped, QString(), none, QString(), 0};
    const QByteArray report = junitReport(QStringLiteral("filling"), someTime(), sequence, results);
    const QList<QByteArray> lines = report.split('\n');
    const QList<QByteArray> expected = {
        R"(<?xml version="1.0" encoding="UTF-8"?>)",
        R"(<testsuites>)",
        R"(    <testsuite name="filling" tests="4" failures="1" errors="1" skipped="1" )"
        R"(time="1.021" timestamp="2026-11-22T10:00:05">)",
        R"(        <testcase classname="filling" name="line 01: write pump = on" time="0.021"/>)",
        R"(        <testcase classname="filling" name="line 09: wait pressure &lt; 4.5 within 1s" )"
        R"(time="1.000">)",
        R"(            <failure message="pressure (D100@1) is 5.1 bar, expected &lt; 4.5"/>)",
        R"(        </testcase>)",
        R"(        <testcase classname="filling" name="line 10: expect level = 7" time="0.000">)",
        R"(            <skipped message="a step before it failed, or the run was stopped"/>)",
        R"(        </testcase>)",
        R"(        <testcase classname="filling" name="line 12: write pump = off" time="0.000">)",
        R"(            <error message="not done: the run did not come to its end"/>)",
        R"(        </testcase>)",
        R"(    </testsuite>)",
        R"(</testsuites>)",
        ""};
    QCOMPARE(lines, expected);
}

void JunitReportTest::textsThatXmlCannotHold()
{
    Sequence sequence = sequenceOf("pause 1s");
    sequence.steps.first().text = QStringLiteral("\"\u0001\uFFFE\u001B[31m & <x>");
    const QByteArray report = junitReport(QStringLiteral("a\u0002"), someTime(), sequence, {});
    QVERIFY(report.contains(
        "name=\"line 1: &quot;\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD[31m &amp; &lt;x&gt;\""));
    QVERIFY(report.contains("classname=\"a\xEF\xBF\xBD\""));
}

QTEST_GUILESS_MAIN(JunitReportTest)
#include "tst_junit_report.moc"
