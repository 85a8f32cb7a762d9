#include "kxhost/sequence/step_rows.h"
#include "tools/panel/sequence/sequence_fixture.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace kx;

namespace
{

QByteArray compact(const QJsonObject& json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

StepResult failed()
{
    StepResult result;
    result.outcome = StepOutcome::Failed;
    result.shown = QStringLiteral("4.2 bar");
    result.value = 4.2;
    result.reason = QStringLiteral("the reason");
    result.microseconds = 3214500;
    return result;
}

} // namespace

class StepRowsTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsOfSteps();
    void jsonOfSteps();
};

void StepRowsTest::rowsOfSteps()
{
    const Sequence sequence = sequenceOf("\nwait pressure > 4.5 within 10s\npause 1s");
    const Step& wait = sequence.steps.at(0);
    const Step& pause = sequence.steps.at(1);
    StepResult result = failed();
    QCOMPARE(stepRow(wait, result),
             QStringLiteral("failed      3.215 s  line 2: wait pressure > 4.5 within 10s  (4.2 "
                            "bar)"));
    result.outcome = StepOutcome::Passed;
    result.shown.clear();
    QCOMPARE(stepRow(pause, result), QStringLiteral("passed      3.215 s  line 3: pause 1s"));
    QCOMPARE(stepRow(pause, StepResult()), QStringLiteral("skipped              line 3: pause 1s"));
    QCOMPARE(workingRow(wait, 2140, QStringLiteral("4.2 bar")),
             QStringLiteral("...           2.1 s  line 2: wait pressure > 4.5 within 10s  (4.2 "
                            "bar)"));
    QCOMPARE(plannedRow(wait),
             QStringLiteral("line 2: wait pressure > 4.5 within 10s  pressure (D100@1)"));
    QCOMPARE(plannedRow(pause), QStringLiteral("line 3: pause 1s"));
}

void StepRowsTest::jsonOfSteps()
{
    const Sequence sequence = sequenceOf("\nwait pressure > 4.5 within 10s\npause 1s");
    QCOMPARE(compact(resultJson(sequence.steps.at(0), failed())),
             QByteArray(R"({"address":"D100/u16*0.1,unit=bar","event":"step",)"
                        R"("failure":"the reason","line":2,"milliseconds":3214.5,)"
                        R"("name":"pressure","outcome":"failed","station":1,)"
                        R"("step":"wait pressure > 4.5 within 10s","value":4.2})"));
    QCOMPARE(compact(resultJson(sequence.steps.at(1), StepResult())),
             QByteArray(R"({"event":"step","line":3,"milliseconds":0,"outcome":"skipped",)"
                        R"("step":"pause 1s"})"));
}

QTEST_GUILESS_MAIN(StepRowsTest)
#include "tst_step_rows.moc"
