#include "planning/address_merge.h"
#include "planning/range_text.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

QList<int> openers(const QList<KEY_ADDRESS>& blocks)
{
    QList<int> tags;
    for (const KEY_ADDRESS& block : blocks)
        tags << block.keyTag1;
    return tags;
}

} // namespace

class MergeOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void sortsForReading_data();
    void sortsForReading();
    void keepsTheOrderForARecipe();
    void everyModeButTheRecipesSorts();
    void aBlockIsACopyOfItsOpener();
    void entriesOfEqualWeightKeepTheirOrder();
    void appendsBlockStarts();
    void anEmptyListStaysEmpty();
};

void MergeOrderTest::sortsForReading_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("expected");
    QTest::newRow("by address") << "1 D 200 x1, 1 D 0 x1, 1 D 100 x1"
                                << "1 D 0 x1, 1 D 100 x1, 1 D 200 x1";
    QTest::newRow("by type in sort order")
        << "1 Z 0 x1, 1 32CV 200 x2, 1 CV 0 x1, 1 TV 0 x1, 1 SD 0 x1, 1 D 0 x1, 1 C 0 x1, "
           "1 T 0 x1, 1 S 0 x1, 1 SM 0 x1, 1 M 0 x1, 1 Y 0 x1, 1 X 0 x1, 1 Q 0 x1"
        << "1 Q 0 x1, 1 X 0 x1, 1 Y 0 x1, 1 M 0 x1, 1 SM 0 x1, 1 S 0 x1, 1 T 0 x1, 1 C 0 x1, "
           "1 D 0 x1, 1 SD 0 x1, 1 TV 0 x1, 1 CV 0 x1, 1 32CV 200 x2, 1 Z 0 x1";
    QTest::newRow("stations interleave: one station is five types")
        << "1 Y 6 x1, 0 C 5 x1, 0 D 0 x1, 1 X 0 x1"
        << "1 X 0 x1, 0 C 5 x1, 1 Y 6 x1, 0 D 0 x1";
    QTest::newRow("weights past 2^31 are the highest") << "27000 X 0 x1, 1 D 0 x1"
                                                       << "1 D 0 x1, 27000 X 0 x1";
    QTest::newRow("sorted before joining") << "1 D 2 x2, 1 D 0 x2"
                                           << "1 D 0 x4";
}

void MergeOrderTest::sortsForReading()
{
    QFETCH(QString, entries);
    QFETCH(QString, expected);
    DriverFixture runtime("1#0#0#3#8");
    QList<KEY_ADDRESS> list = ranges(entries);
    addrMerge(list, 1);
    QCOMPARE(textOf(list), expected);
}

void MergeOrderTest::keepsTheOrderForARecipe()
{
    DriverFixture runtime;
    // D0 lies before D100 and joins it: only ranges past the block's end start anew.
    QList<KEY_ADDRESS> list = ranges("1 TV 5 x1, 1 D 100 x1, 1 D 0 x1, 1 X 0 x1");
    addrMerge(list, 2);
    QCOMPARE(textOf(list), QString("1 TV 5 x1, 1 D 100 x1, 1 X 0 x1"));
    QCOMPARE(driver.intList, QList<int>({0, 1, 3}));
}

void MergeOrderTest::everyModeButTheRecipesSorts()
{
    DriverFixture runtime;
    for (const int mode : {1, 0, -1, 3, 99}) {
        QList<KEY_ADDRESS> list = ranges("1 D 10 x1, 1 D 0 x1");
        addrMerge(list, mode);
        QCOMPARE(textOf(list), QString("1 D 0 x11"));
    }
    QCOMPARE(driver.intList, QList<int>());
}

void MergeOrderTest::aBlockIsACopyOfItsOpener()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> list = ranges("1 D 2 x2, 1 D 0 x2, 1 C 5 x1, 1 S 5 x1");
    list[1].keyName = "name";
    list[1].keyTag2 = 22;
    list[1].addrText = "D0";
    list[1].bitIndex = 3;
    list[1].data[0] = 1;
    list[1].data[1023] = 2;
    addrMerge(list, 1);
    QCOMPARE(textOf(list), QString("1 S 5 x1, 1 C 5 x1, 1 D 0 x4"));
    QCOMPARE(openers(list), QList<int>({3, 2, 1}));
    QCOMPARE(list.at(2).keyName, QString("name"));
    QCOMPARE(list.at(2).keyTag2, 22);
    QCOMPARE(list.at(2).addrText, QString("D0"));
    QCOMPARE(list.at(2).bitIndex, 3);
    QCOMPARE(int(list.at(2).data[0]), 1);
    QCOMPARE(int(list.at(2).data[1023]), 2);
}

void MergeOrderTest::entriesOfEqualWeightKeepTheirOrder()
{
    DriverFixture runtime;
    // C5 at station 0 weighs as much as Y5 at station 1.
    QList<KEY_ADDRESS> list = ranges("1 Y 5 x1, 0 C 5 x1, 1 D 9 x1, 1 D 9 x3, 1 D 9 x2");
    addrMerge(list, 1);
    QCOMPARE(textOf(list), QString("1 Y 5 x1, 0 C 5 x1, 1 D 9 x3"));
    QCOMPARE(openers(list), QList<int>({0, 1, 2}));
    list = ranges("0 C 5 x1, 1 Y 5 x1");
    addrMerge(list, 1);
    QCOMPARE(textOf(list), QString("0 C 5 x1, 1 Y 5 x1"));
}

void MergeOrderTest::appendsBlockStarts()
{
    DriverFixture runtime;
    driver.intList = {77};
    QList<KEY_ADDRESS> list = ranges("1 D 0 x1, 1 D 9 x1");
    addrMerge(list, 2);
    QCOMPARE(driver.intList, QList<int>({77, 0, 1}));
}

void MergeOrderTest::anEmptyListStaysEmpty()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> list;
    addrMerge(list, 1);
    addrMerge(list, 2);
    QVERIFY(list.isEmpty());
    QVERIFY(driver.intList.isEmpty());
}

QTEST_APPLESS_MAIN(MergeOrderTest)
#include "tst_merge_order.moc"
