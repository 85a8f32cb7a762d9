#include "kxpanel/line/limit/answer_times.h"

#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

/// Characters of 1041.667 us, which a transmission rounds up.
kx::LineTiming serial()
{
    return kx::LineTiming(); // 9600 8N1
}

} // namespace

class AnswerTimesTest : public QObject
{
    Q_OBJECT

private slots:
    void turnaroundsAreThoseOfLate();
    void whatTakesLongNowAndThenCounts();
    void aNetworkByAnswersOfOtherLengths();
    void aNetworkWhoseLengthsTellNothing_data();
    void aNetworkWhoseLengthsTellNothing();
    void stationsOfANetwork();
    void oneThatIsLateChangesNothing();
    void lengthsThatComeNoMoreAreForgotten();
    void lengthsThatComeSeldomStay();
    void forgets();
};

void AnswerTimesTest::turnaroundsAreThoseOfLate()
{
    AnswerTimes times;
    for (int i = 0; i < 100; ++i)
        times.add(1, 20, 5000);
    for (int i = 0; i < 49; ++i)
        times.add(1, 90, 8000);
    times.add(3, 20, 1200);
    AnswerPace pace = times.pace(serial(), false);
    QCOMPARE(pace.turnarounds, (QMap<int, qint64>{{1, 8000}, {3, 1200}}));
    for (int i = 0; i < 12; ++i)
        times.add(1, 20, 5000);
    pace = times.pace(serial(), false); // 37 and 11 of the latest 50, but for one of each
    QCOMPARE(pace.turnarounds.value(1), qint64(7313));
    QVERIFY(!pace.isNetwork);
    QCOMPARE(pace.line.baud, 9600);
    QVERIFY(pace.each.isEmpty());
}

// A cycle takes what its replies take together.
void AnswerTimesTest::whatTakesLongNowAndThenCounts()
{
    AnswerTimes times;
    for (int i = 0; i < 50; ++i)
        times.add(1, 20, i % 10 == 9 ? 95000 : 5000); // five
    // Four of 95 ms and 44 of 5 ms.
    QCOMPARE(times.pace(serial(), false).turnarounds.value(1), qint64(12500));
    AnswerTimes network; // 500 us a byte and as much
    for (int i = 0; i < 50; ++i) {
        const int bytes = i % 2 == 0 ? 20 : 60;
        network.add(1, bytes, 500 * bytes + (i % 10 == 9 ? 95000 : 5000));
    }
    QCOMPARE(network.pace(serial(), true).perByte, 500.0);
    QCOMPARE(network.pace(serial(), true).each.value(1), qint64(12500));
}

void AnswerTimesTest::aNetworkByAnswersOfOtherLengths()
{
    AnswerTimes times; // 500 us a byte, as no setting says, and 4 ms
    times.add(1, 20, 14000);
    times.add(1, 60, 34000);
    times.add(1, 264, 136000);
    const AnswerPace pace = times.pace(serial(), true);
    QVERIFY(pace.isNetwork);
    QCOMPARE(pace.perByte, 500.0);
    QCOMPARE(pace.each, (QMap<int, qint64>{{1, 4000}}));
    QCOMPARE(pace.turnarounds, (QMap<int, qint64>{{1, 34000}}));
}

void AnswerTimesTest::aNetworkWhoseLengthsTellNothing_data()
{
    QTest::addColumn<qint64>("first"); // of 20 bytes, in microseconds
    QTest::addColumn<int>("bytes");    // of the second
    QTest::addColumn<qint64>("second");
    QTest::addColumn<qint64>("perByte"); // nanoseconds
    QTest::addColumn<qint64>("each");    // microseconds
    QTest::newRow("all are alike: as the serial line behind it has it")
        << qint64(30000) << 20 << qint64(30000) << qint64(1041667) << qint64(9167);
    QTest::newRow("too little apart")
        << qint64(30000) << 35 << qint64(46000) << qint64(1041667) << qint64(9354);
    QTest::newRow("sooner than on a serial line")
        << qint64(400) << 20 << qint64(400) << qint64(0) << qint64(400);
    QTest::newRow("the longer ones are quicker")
        << qint64(400) << 90 << qint64(200) << qint64(0) << qint64(300);
}

void AnswerTimesTest::aNetworkWhoseLengthsTellNothing()
{
    QFETCH(qint64, first);
    QFETCH(int, bytes);
    QFETCH(qint64, second);
    AnswerTimes times;
    times.add(1, 20, first);
    times.add(1, bytes, second);
    const AnswerPace pace = times.pace(serial(), true);
    QTEST(qint64(qRound64(pace.perByte * 1000)), "perByte");
    QTEST(pace.each.value(1), "each");
}

void AnswerTimesTest::stationsOfANetwork()
{
    AnswerTimes times;
    times.add(1, 20, 14000); // 500 us a byte for both
    times.add(1, 60, 34000);
    times.add(2, 20, 24000);
    times.add(2, 60, 44000);
    const AnswerPace pace = times.pace(serial(), true);
    QCOMPARE(pace.perByte, 500.0);
    QCOMPARE(pace.each, (QMap<int, qint64>{{1, 4000}, {2, 14000}}));
}

void AnswerTimesTest::oneThatIsLateChangesNothing()
{
    AnswerTimes times;
    for (const qint64 late : {0, 0, 900000}) {
        times.add(1, 20, 14000 + late);
        times.add(1, 60, 34000);
    }
    const AnswerPace pace = times.pace(serial(), true);
    QCOMPARE(pace.perByte, 500.0);
    QCOMPARE(pace.each, (QMap<int, qint64>{{1, 4000}}));
}

// As when a gateway was busy, and then a lower limit is in force.
void AnswerTimesTest::lengthsThatComeNoMoreAreForgotten()
{
    AnswerTimes times;
    times.add(1, 40, 30000);
    times.add(1, 93, 83000);
    for (int i = 0; i < 400; ++i)
        times.add(1, 33, 5000);
    times.add(2, 60, 50000); // of another station, whose answers are counted apart
    QCOMPARE(times.pace(serial(), true).perByte, 1300.0); // from 33 bytes to 93
    for (int i = 400; i < 500; ++i)
        times.add(1, 33, 5000);
    QCOMPARE(times.pace(serial(), true).perByte, 0.0);
    QCOMPARE(times.pace(serial(), true).each, (QMap<int, qint64>{{1, 5000}, {2, 50000}}));
}

void AnswerTimesTest::lengthsThatComeSeldomStay()
{
    AnswerTimes times; // 500 us a byte and 4 ms
    times.add(1, 60, 34000);
    for (int i = 0; i < 499; ++i)
        times.add(1, 20, 14000);
    QCOMPARE(times.pace(serial(), true).perByte, 500.0);
    times.add(1, 60, 34000); // the 500th behind
    for (int i = 0; i < 499; ++i)
        times.add(1, 20, 14000);
    QCOMPARE(times.pace(serial(), true).perByte, 500.0);
    times.add(1, 20, 14000); // and no more: sooner than on a serial line
    QCOMPARE(times.pace(serial(), true).perByte, 0.0);
}

void AnswerTimesTest::forgets()
{
    AnswerTimes times;
    times.add(1, 20, 14000);
    times.clear();
    QVERIFY(times.pace(serial(), true).turnarounds.isEmpty());
    QVERIFY(times.pace(serial(), true).each.isEmpty());
}

QTEST_GUILESS_MAIN(AnswerTimesTest)

#include "tst_answer_times.moc"
