#include "kxpanel/exchanges/reply_times.h"

#include <QtTest/QTest>

using namespace kxpanel;

class ReplyTimesTest : public QObject
{
    Q_OBJECT

private slots:
    void classes_data();
    void classes();
    void classesFollowEachOther();
    void quantiles_data();
    void quantiles();
    void countsClasses();
};

void ReplyTimesTest::classes_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<int>("index");
    QTest::addColumn<qint64>("begin");
    QTest::newRow("nothing") << qint64(0) << 0 << qint64(0);
    QTest::newRow("before the first octave") << qint64(7) << 7 << qint64(7);
    QTest::newRow("first octave, by one microsecond") << qint64(15) << 15 << qint64(15);
    QTest::newRow("second, by two") << qint64(17) << 16 << qint64(16);
    QTest::newRow("end of the second") << qint64(31) << 23 << qint64(30);
    QTest::newRow("third, by four") << qint64(32) << 24 << qint64(32);
    // 5000 lies between 4096 and 8192, in the second of eight steps of 512: 4608 to 5119.
    QTest::newRow("5 ms") << qint64(5000) << 81 << qint64(4608);
    QTest::newRow("before the request") << qint64(-3) << 0 << qint64(0);
}

void ReplyTimesTest::classes()
{
    QFETCH(qint64, time);
    QFETCH(int, index);
    QCOMPARE(ReplyTimes::classOf(time), index);
    QTEST(ReplyTimes::beginOf(index), "begin");
}

void ReplyTimesTest::classesFollowEachOther()
{
    for (int index = 0; index < 240; ++index) { // up to some minutes
        const qint64 end = ReplyTimes::beginOf(index + 1);
        QCOMPARE(ReplyTimes::classOf(ReplyTimes::beginOf(index)), index);
        QCOMPARE(ReplyTimes::classOf(end - 1), index);
        QVERIFY((end - ReplyTimes::beginOf(index)) * 8 <= qMax(qint64(8), end));
    }
}

void ReplyTimesTest::quantiles_data()
{
    QTest::addColumn<QVector<qint64>>("times");
    QTest::addColumn<qint64>("median");
    QTest::addColumn<qint64>("mostOf100"); // 99 %
    QTest::newRow("none") << QVector<qint64>() << qint64(0) << qint64(0);
    QTest::newRow("one") << QVector<qint64>({5000}) << qint64(5000) << qint64(5000);
    QTest::newRow("of three the second, to its class's end")
        << QVector<qint64>({100, 5000, 9000}) << qint64(5119) << qint64(9000);
    QTest::newRow("of two the first") << QVector<qint64>({14, 20}) << qint64(14) << qint64(20);
    // One of 200 does not count.
    QTest::newRow("an odd one out")
        << (QVector<qint64>(199, 12) + QVector<qint64>({300000})) << qint64(12) << qint64(12);
    // Two of 100 do.
    QTest::newRow("two of a hundred")
        << (QVector<qint64>(98, 12) + QVector<qint64>({13, 300000})) << qint64(12) << qint64(13);
}

void ReplyTimesTest::quantiles()
{
    QFETCH(QVector<qint64>, times);
    ReplyTimes replies;
    for (const qint64 time : times)
        replies.add(time);
    QTEST(replies.median(), "median");
    QTEST(replies.quantile(0.99), "mostOf100");
}

void ReplyTimesTest::countsClasses()
{
    ReplyTimes replies;
    QVERIFY(replies.classes().isEmpty());
    for (const qint64 time : {2, 0, 2, 4})
        replies.add(time);
    QCOMPARE(replies.classes(), QVector<qint64>({1, 0, 2, 0, 1}));
    QCOMPARE(replies.count(), qint64(4));
    QCOMPARE(replies.longest(), qint64(4));
}

QTEST_GUILESS_MAIN(ReplyTimesTest)

#include "tst_reply_times.moc"
