#include "kxpanel/trend/model/trend_number.h"

#include "trend_tags.h"

#include <QtTest/QTest>

using kxpanel::isLong;
using kxpanel::longSample;
using kxpanel::TrendSample;

class TrendNumberTest : public QObject
{
    Q_OBJECT

private slots:
    void placesOfAFormat_data();
    void placesOfAFormat();
    void fifteenDigitsAreNotLong();
    void digitsComeBack_data();
    void digitsComeBack();
    void whatIsLostIsSaid();
    void floatingNumbersHaveFifteenDigits();
};

void TrendNumberTest::placesOfAFormat_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<int>("places");
    QTest::newRow("whole") << "D10@1/u64" << 0;
    QTest::newRow("bit") << "Y10@1" << 0;
    QTest::newRow("scaled") << "D10@1/u64*0.25" << 2;
    QTest::newRow("by the offset") << "D10@1/u64*0.25+0.125" << 3;
    QTest::newRow("shown with fewer") << "D10@1/u64*2.5,decimals=0" << 1;
    QTest::newRow("floating") << "D10@1/double" << -1;
    QTest::newRow("text") << "D10@1/ascii:4" << -1;
    QTest::newRow("floating, scaled") << "D10@1/float*0.1" << -1;
}

void TrendNumberTest::placesOfAFormat()
{
    QFETCH(QString, address);
    QTEST(kxpanel::placesOf(kxpanel::tagOf("", address.toLatin1()).format), "places");
}

void TrendNumberTest::fifteenDigitsAreNotLong()
{
    QVERIFY(!isLong(0, 0));
    QVERIFY(!isLong(999999999999999.0, 0));
    QVERIFY(isLong(1e15, 0));
    QVERIFY(isLong(-1e15, 0));
    QVERIFY(!isLong(999999999999.999, 3));
    QVERIFY(isLong(1e12, 3));
    QVERIFY(isLong(0, 400)); // more than a double can tell, which loses nothing
    QVERIFY(!isLong(1e300, -1));
}

void TrendNumberTest::digitsComeBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("places");
    QTest::newRow("between two doubles") << "9007199254740993" << 0;
    QTest::newRow("below the double") << "18446744073709549569" << 0;
    QTest::newRow("above the double") << "18446744073709550590" << 0;
    QTest::newRow("a double itself") << "9223372036854775808" << 0;
    QTest::newRow("round") << "10000000000000000000" << 0;
    QTest::newRow("with a sign") << "-9223372036854775807" << 0;
    QTest::newRow("with a fraction") << "184467440737095516.15" << 2;
    QTest::newRow("whole, of a scale with a fraction") << "184467440737095517" << 2;
    QTest::newRow("nothing") << "0" << 400;
}

void TrendNumberTest::digitsComeBack()
{
    QFETCH(QString, text);
    QFETCH(int, places);
    const TrendSample sample = longSample(1000, text.toDouble(), text, places);
    QCOMPARE(sample.time(), qint64(1000));
    QCOMPARE(sample.value, text.toDouble());
    QVERIFY(!sample.isRounded());
    QCOMPARE(kxpanel::numberText(sample, places), text);
    QCOMPARE(kxpanel::fileText(sample, places), text);
}

/// Rather than to show digits that nobody read.
void TrendNumberTest::whatIsLostIsSaid()
{
    const TrendSample far = longSample(1000, 1e22, "10000000000000000016384", 0);
    const TrendSample near = longSample(1000, 1e22, "10000000000000000016383", 0);
    QVERIFY(far.isRounded());
    QVERIFY(!near.isRounded());
    QCOMPARE(kxpanel::numberText(near, 0), QString("10000000000000000016383"));
    const TrendSample finer = longSample(1000, 1e18, "1000000000000000000.5", 0);
    QVERIFY(finer.isRounded());
    QCOMPARE(kxpanel::numberText(finer, 0), QString::fromUtf8("\u22481e+18"));
    QCOMPARE(kxpanel::fileText(finer, 0), QString("1e+18"));
    QCOMPARE(kxpanel::differenceText(finer, TrendSample(2000, 3), 0),
             QString::fromUtf8("\u2248-1e+18"));
    QVERIFY(longSample(1000, 1e18, "text", 0).isRounded());
}

void TrendNumberTest::floatingNumbersHaveFifteenDigits()
{
    const TrendSample small(1000, 0.1);
    const TrendSample sum(2000, 0.30000000000000004);
    QCOMPARE(kxpanel::numberText(sum, -1), QString("0.3"));
    QCOMPARE(kxpanel::fileText(sum, -1), QString("0.30000000000000004"));
    QCOMPARE(kxpanel::differenceText(small, sum, -1), QString("0.2"));
    QCOMPARE(kxpanel::differenceText(TrendSample(1000, 12345.66), TrendSample(2000, 12345.67), -1),
             QString("0.01"));
    QCOMPARE(kxpanel::numberText(TrendSample(1000, 1e300), -1), QString("1e+300"));
    QCOMPARE(kxpanel::differenceText(TrendSample(1000, 1e300), TrendSample(2000, -1e-300), -1),
             QString("-1e+300"));
}

QTEST_APPLESS_MAIN(TrendNumberTest)
#include "tst_trend_number.moc"
