// Times as people type them.

#include "kxsim/timing/duration_text.h"

#include <QtTest/QTest>

using kxsim::DurationRange;
using kxsim::parseDuration;
using kxsim::parseDurationRange;
using std::chrono::microseconds;

class DurationTextTest : public QObject
{
    Q_OBJECT

private slots:
    void aTimeIsRead_data();
    void aTimeIsRead();
    void whatIsNoTimeIsRefused_data();
    void whatIsNoTimeIsRefused();
    void aRangeIsRead_data();
    void aRangeIsRead();
    void whatIsNoRangeIsRefused_data();
    void whatIsNoRangeIsRefused();
};

void DurationTextTest::aTimeIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("expected"); // microseconds
    QTest::newRow("microseconds") << "800us" << qint64(800);
    QTest::newRow("milliseconds") << "5ms" << qint64(5000);
    QTest::newRow("seconds") << "20s" << qint64(20000000);
    QTest::newRow("minutes") << "2min" << qint64(120000000);
    QTest::newRow("hours") << "1h" << qint64(3600000000);
    QTest::newRow("nothing") << "0ms" << qint64(0);
    QTest::newRow("a fraction") << "1.5s" << qint64(1500000);
    QTest::newRow("down to the microsecond") << "1.750001s" << qint64(1750001);
    QTest::newRow("zeros behind the last microsecond") << "1.500ms" << qint64(1500);
    QTest::newRow("the longest") << "24h" << qint64(86400000000);
}

void DurationTextTest::aTimeIsRead()
{
    QFETCH(QString, text);
    microseconds duration{-1};
    QVERIFY(parseDuration(text, &duration));
    QTEST(qint64(duration.count()), "expected");
}

void DurationTextTest::whatIsNoTimeIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("no unit") << "5";
    QTest::newRow("no number") << "ms";
    QTest::newRow("unknown unit") << "5m";
    QTest::newRow("a blank between") << "5 ms";
    QTest::newRow("a sign") << "-5ms";
    QTest::newRow("a comma") << "1,5s";
    QTest::newRow("a point without digits") << "1.s";
    QTest::newRow("half a microsecond") << "0.5us";
    QTest::newRow("less than a microsecond left over") << "1.0000001s";
    QTest::newRow("longer than a day") << "86400.000001s";
    QTest::newRow("beyond 64 bits") << "999999999999h";
    QTest::newRow("digits of another script") << QString(QChar(0x0665)) + "ms";
    QTest::newRow("a line end behind") << "5ms\n";
}

void DurationTextTest::whatIsNoTimeIsRefused()
{
    QFETCH(QString, text);
    microseconds duration{77};
    QVERIFY(!parseDuration(text, &duration));
    QCOMPARE(duration.count(), microseconds::rep(77));
}

void DurationTextTest::aRangeIsRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("from"); // microseconds
    QTest::addColumn<qint64>("to");
    QTest::newRow("one unit") << "5..20ms" << qint64(5000) << qint64(20000);
    QTest::newRow("two units") << "800us..1.5ms" << qint64(800) << qint64(1500);
    QTest::newRow("fractions") << "0.5..1.5s" << qint64(500000) << qint64(1500000);
    QTest::newRow("downwards") << "20..5ms" << qint64(20000) << qint64(5000);
}

void DurationTextTest::aRangeIsRead()
{
    QFETCH(QString, text);
    DurationRange range;
    QVERIFY(parseDurationRange(text, &range));
    QTEST(qint64(range.from.count()), "from");
    QTEST(qint64(range.to.count()), "to");
}

void DurationTextTest::whatIsNoRangeIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a single time") << "5ms";
    QTest::newRow("no unit at all") << "5..20";
    QTest::newRow("a unit at the first only") << "5ms..20";
    QTest::newRow("no end") << "5ms..";
    QTest::newRow("no beginning") << "..5ms";
    QTest::newRow("three times") << "5..6..7ms";
}

void DurationTextTest::whatIsNoRangeIsRefused()
{
    QFETCH(QString, text);
    DurationRange range;
    QVERIFY(!parseDurationRange(text, &range));
    QCOMPARE(range.to.count(), microseconds::rep(0));
}

QTEST_APPLESS_MAIN(DurationTextTest)

#include "tst_duration_text.moc"
