#include "recording/recording_rules.h"

#include <QtTest/QTest>

using namespace kx;

class RecordingRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void aRecordWaitsForHalfASecond();
    void aClockThatIsSetBackHoldsNothingUp();
    void samplesComeAtWholeMultiples_data();
    void samplesComeAtWholeMultiples();
    void aRotationIsRead_data();
    void aRotationIsRead();
    void aWrongRotationIsRefused_data();
    void aWrongRotationIsRefused();
    void aFileEnds_data();
    void aFileEnds();
    void filesHaveTheirTimeInTheirNames_data();
    void filesHaveTheirTimeInTheirNames();
};

void RecordingRulesTest::aRecordWaitsForHalfASecond()
{
    FlushRule rule;
    QVERIFY(!rule.isDue(0));
    rule.onRecord(1000);
    rule.onRecord(1400); // the first one counts
    QVERIFY(!rule.isDue(1499));
    QVERIFY(rule.isDue(1500));
    rule.onFlush();
    QVERIFY(!rule.isDue(9000));
}

void RecordingRulesTest::aClockThatIsSetBackHoldsNothingUp()
{
    FlushRule rule;
    rule.onRecord(1000);
    QVERIFY(rule.isDue(999));
}

void RecordingRulesTest::samplesComeAtWholeMultiples_data()
{
    QTest::addColumn<qint64>("now");
    QTest::addColumn<qint64>("left");
    const qint64 second = 1700000000000;
    QTest::newRow("at one") << second << qint64(1000);
    QTest::newRow("a little late") << second + 3 << qint64(997);
    QTest::newRow("between two") << second + 400 << qint64(600);
    QTest::newRow("a tenth before") << second + 900 << qint64(100);
    QTest::newRow("a little early") << second + 901 << qint64(1099);
    QTest::newRow("by a millisecond") << second + 999 << qint64(1001);
}

void RecordingRulesTest::samplesComeAtWholeMultiples()
{
    QFETCH(qint64, now);
    QTEST(untilNextSample(now, 1000), "left");
}

void RecordingRulesTest::aRotationIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<qint64>("milliseconds");
    QTest::newRow("the smallest size") << "64k" << qint64(65536) << qint64(0);
    QTest::newRow("a size") << "100M" << qint64(104857600) << qint64(0);
    QTest::newRow("the largest size") << "1024G" << qint64(1099511627776) << qint64(0);
    QTest::newRow("a minute") << "1min" << qint64(0) << qint64(60000);
    QTest::newRow("an hour") << "1h" << qint64(0) << qint64(3600000);
    QTest::newRow("the longest time") << "366d" << qint64(0) << qint64(31622400000);
}

void RecordingRulesTest::aRotationIsRead()
{
    QFETCH(QString, text);
    RotationRule rule;
    QVERIFY(!rule.isSet());
    QVERIFY(parseRotation(text, &rule));
    QVERIFY(rule.isSet());
    QTEST(rule.bytes, "bytes");
    QTEST(rule.milliseconds, "milliseconds");
}

void RecordingRulesTest::aWrongRotationIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("no unit") << "100";
    QTest::newRow("nothing") << "0M";
    QTest::newRow("too small") << "63k";
    QTest::newRow("too large") << "1025G";
    QTest::newRow("too long") << "367d";
    QTest::newRow("too short a unit") << "90s";
    QTest::newRow("a fraction") << "1.5h";
    QTest::newRow("both") << "1h100M";
    QTest::newRow("a line end") << "1h\n";
}

void RecordingRulesTest::aWrongRotationIsRefused()
{
    QFETCH(QString, text);
    RotationRule rule;
    QVERIFY(!parseRotation(text, &rule));
    QVERIFY(!rule.isSet());
}

void RecordingRulesTest::aFileEnds_data()
{
    QTest::addColumn<QString>("rotation");
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<qint64>("now");
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("isDue");
    // 1700000000 s are 2023-11-14T22:13:20Z; the next full hour is 2800 s later.
    const qint64 begin = 1700000000000;
    QTest::newRow("below the size")
        << "64k" << begin << begin + 999999999 << qint64(65535) << false;
    QTest::newRow("at the size") << "64k" << begin << begin << qint64(65536) << true;
    QTest::newRow("before the full hour") << "1h" << begin << begin + 2799999 << qint64(1) << false;
    QTest::newRow("at the full hour") << "1h" << begin << begin + 2800000 << qint64(1) << true;
    QTest::newRow("at midnight") << "1d" << begin << qint64(1700006400000) << qint64(1) << true;
    QTest::newRow("a clock set back an hour")
        << "1h" << begin << begin - 3600000 << qint64(1) << true;
}

void RecordingRulesTest::aFileEnds()
{
    QFETCH(QString, rotation);
    QFETCH(qint64, begin);
    QFETCH(qint64, now);
    QFETCH(qint64, size);
    RotationRule rule;
    QVERIFY(parseRotation(rotation, &rule));
    QTEST(rule.isDue(begin, now, size), "isDue");
    QVERIFY(!RotationRule().isDue(begin, now, size));
}

void RecordingRulesTest::filesHaveTheirTimeInTheirNames_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("the first one") << "line3.csv" << 1 << "line3-20231114T221320Z.csv";
    QTest::newRow("another in the same second")
        << "line3.csv" << 2 << "line3-20231114T221320Z-2.csv";
    QTest::newRow("with dots") << "/data/plant.2/line.3.sqlite" << 1
                               << "/data/plant.2/line.3-20231114T221320Z.sqlite";
}

void RecordingRulesTest::filesHaveTheirTimeInTheirNames()
{
    QFETCH(QString, path);
    QFETCH(int, number);
    QTEST(rotatedName(path, 1700000000999, number), "name");
}

QTEST_APPLESS_MAIN(RecordingRulesTest)
#include "tst_recording_rules.moc"
