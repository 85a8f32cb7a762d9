#include "recording/recorded.h"

#include <QtTest/QTest>

using namespace kx;

class RecordedTest : public QObject
{
    Q_OBJECT

private slots:
    void reasons_data();
    void reasons();
    void anotherReasonIsNone();
    void digitsAndTheTextOfThemAreNotTheSame();
};

void RecordedTest::reasons_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<QString>("text");
    QTest::newRow("before the first read") << int(GapReason::NotYetRead) << "not yet read";
    QTest::newRow("no turn yet") << int(GapReason::NotRead) << "not read";
    QTest::newRow("silent station") << int(GapReason::NoAnswer) << "no answer";
    QTest::newRow("exception") << int(GapReason::Refused) << "refused";
    QTest::newRow("unplugged") << int(GapReason::LineLost) << "line lost";
    QTest::newRow("end") << int(GapReason::RecorderStopped) << "recorder stopped";
}

void RecordedTest::reasons()
{
    QFETCH(int, reason);
    QFETCH(QString, text);
    QCOMPARE(gapText(static_cast<GapReason>(reason)), text);
    GapReason read =
        reason == int(GapReason::NotYetRead) ? GapReason::Refused : GapReason::NotYetRead;
    QVERIFY(parseGapText(text, &read));
    QCOMPARE(int(read), reason);
}

void RecordedTest::anotherReasonIsNone()
{
    GapReason reason = GapReason::Refused;
    QVERIFY(!parseGapText(QStringLiteral("Refused"), &reason));
    QVERIFY(!parseGapText(QString(), &reason));
    QVERIFY(reason == GapReason::Refused);
}

void RecordedTest::digitsAndTheTextOfThemAreNotTheSame()
{
    const RecordedValue number = {QStringLiteral("7"), true};
    const RecordedValue text = {QStringLiteral("7"), false};
    QVERIFY(number != text);
    QVERIFY(number == (RecordedValue{QStringLiteral("7"), true}));
}

QTEST_APPLESS_MAIN(RecordedTest)
#include "tst_recorded.moc"
