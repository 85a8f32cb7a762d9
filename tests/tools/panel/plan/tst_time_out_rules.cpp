#include "panel/plan/time_out_rules.h"

#include <QtTest/QTest>

using namespace kx;

class TimeOutRulesTest : public QObject
{
    Q_OBJECT

private slots:
    void longestReplies_data();
    void longestReplies();
    void eachStationByItsOwnTurnaround();
};

void TimeOutRulesTest::longestReplies_data()
{
    QTest::addColumn<int>("baud");
    QTest::addColumn<qint64>("timeOut"); // milliseconds
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<int>("maxBits");
    QTest::newRow("9600 baud") << 9600 << qint64(1000) << 125 << 2000; // 715 characters
    // 750 ms, less 5 and in 1041.7 us each, are 139 characters, five around the data.
    QTest::newRow("a short time-out") << 9600 << qint64(200) << 67 << 1072;
    // 750 ms, less a frame gap of 29.2 and in 8333.3 us each, are 86 characters.
    QTest::newRow("1200 baud") << 1200 << qint64(1000) << 40 << 648;
    QTest::newRow("1200 baud, a long time-out") << 1200 << qint64(3000) << 125 << 2000;
    QTest::newRow("none comes in time") << 300 << qint64(100) << 1 << 16;
    QTest::newRow("a network") << 0 << qint64(1) << 125 << 2000;
}

void TimeOutRulesTest::longestReplies()
{
    QFETCH(int, baud);
    QFETCH(qint64, timeOut);
    ReadRules rules;
    rules.line.baud = baud;
    const StationRules within = rulesWithin(1000 * timeOut, rules).usual;
    QTEST(within.maxWords, "maxWords");
    QTEST(within.maxBits, "maxBits");
    QCOMPARE(within.turnaround, qint64(5000));
}

void TimeOutRulesTest::eachStationByItsOwnTurnaround()
{
    ReadRules rules;
    rules.stations[2].turnaround = 100000; // 150 ms less 100 are 48 characters
    rules.stations[3].maxWords = 16;       // as it answers
    // Half of the 52 ms that it leaves are 24 characters.
    rules.stations[4].turnaround = 148000;
    rules.stations[5].turnaround = 200000; // no answer comes in time
    const ReadRules within = rulesWithin(200000, rules);
    QCOMPARE(within.of(1).maxWords, 67);
    QCOMPARE(within.of(2).maxWords, 21);
    QCOMPARE(within.of(2).turnaround, qint64(100000));
    QCOMPARE(within.of(4).maxWords, 9);
    QCOMPARE(within.of(4).maxBits, 152);
    QCOMPARE(within.of(5).maxWords, 1);
    QCOMPARE(within.of(3).maxWords, 16);
    QCOMPARE(within.of(3).maxBits, 1072);
    QCOMPARE(within.line.baud, rules.line.baud);
}

QTEST_APPLESS_MAIN(TimeOutRulesTest)

#include "tst_time_out_rules.moc"
