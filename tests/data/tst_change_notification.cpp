#include "data/cached_record.h"
#include "data/change_notification.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

void wordChange(int oldWord, int newWord, int address = 10, int bitStart = 0)
{
    _wordDataChange(&oldWord, &newWord, 1, "D", address, bitStart);
}

void byteChange(unsigned char newByte, unsigned char oldByte, int address = 8)
{
    _byteDataChange(&newByte, &oldByte, 1, "M", address);
}

QList<Report> inOrder(const QList<QList<Report>>& parts)
{
    QList<Report> all;
    for (const QList<Report>& part : parts)
        all += part;
    return all;
}

} // namespace

class ChangeNotificationTest : public QObject
{
    Q_OBJECT

private slots:
    void equalWordsReportNothingButCreateTheRecord()
    {
        DriverFixture runtime;
        wordChange(5, 5);
        QCOMPARE(runtime.reports, QList<Report>());
        QVERIFY(isCached(1, "D", 10));
        record(1, "D", 10).monitorFlags = 7;
        record(1, "D", 10).bitMonitorMask = 0xFFFF;
        wordChange(5, 5);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(cachedCount(), 1);
    }

    void anUnwatchedWordReportsNothing()
    {
        DriverFixture runtime;
        wordChange(0, 0xFFFF);
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(cachedCount(), 1);
    }

    void watchedBitsOfAWord_data()
    {
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("oldWord");
        QTest::addColumn<int>("newWord");
        QTest::addColumn<QList<int>>("bits");
        QTest::newRow("two bits on") << 0x0005 << 0 << 0x0005 << (QList<int>() << 160 << 162);
        QTest::newRow("two bits off") << 0x0005 << 0x0005 << 0 << (QList<int>() << 160 << 162);
        QTest::newRow("one of two") << 0x0005 << 0x0001 << 0x0005 << (QList<int>() << 162);
        QTest::newRow("changed, not watched") << 0x0005 << 0 << 0x0002 << QList<int>();
        QTest::newRow("the lowest bit alone") << 0x0001 << 0 << 0x0003 << (QList<int>() << 160);
        QTest::newRow("highest bit") << 0x8000 << 0 << 0x8000 << (QList<int>() << 175);
        QTest::newRow("mark above bit 15") << 0x10000 << 0 << 0x10001 << QList<int>();
        QTest::newRow("sign bit of the mask") << INT_MIN << 0 << 0xFFFF << QList<int>();
    }

    void watchedBitsOfAWord()
    {
        QFETCH(int, mask);
        QFETCH(int, oldWord);
        QFETCH(int, newWord);
        QFETCH(QList<int>, bits);
        DriverFixture runtime;
        record(1, "D", 10).bitMonitorMask = mask;
        wordChange(oldWord, newWord);
        QCOMPARE(runtime.reports, reportsOf("D_bit", bits));
    }

    void aBitStartSuppressesTheBitsOnly()
    {
        DriverFixture runtime;
        record(1, "D", 10).bitMonitorMask = 0xFFFF;
        record(1, "D", 10).monitorFlags = 1;
        wordChange(0, 1, 10, 1);
        QCOMPARE(runtime.reports, reportsOf("D", {10}));
    }

    void marksOfTheWholeWord_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("whole");
        QTest::newRow("bit 0") << 1 << 1;
        QTest::newRow("not watched") << 0 << 0;
        QTest::newRow("bit 3 only") << 8 << 0;
        QTest::newRow("bits 0 and 3") << 9 << 1;
        QTest::newRow("negative, odd") << INT_MIN + 1 << 0;
    }

    void marksOfTheWholeWord()
    {
        QFETCH(int, flags);
        QFETCH(int, whole);
        DriverFixture runtime;
        record(1, "D", 10).monitorFlags = flags;
        wordChange(0, 1);
        QCOMPARE(runtime.reports, reportsOf("D", whole ? QList<int>{10} : QList<int>{}));
    }

    void marksOfPairs_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("address");
        QTest::addColumn<QList<int>>("pairs");
        QTest::newRow("starts here") << 2 << 10 << (QList<int>() << 10);
        QTest::newRow("ends here") << 4 << 10 << (QList<int>() << 9);
        QTest::newRow("both") << 6 << 10 << (QList<int>() << 10 << 9);
        QTest::newRow("starts at 0") << 2 << 0 << (QList<int>() << 0);
        QTest::newRow("ends at 0: no pair before it") << 4 << 0 << QList<int>();
        QTest::newRow("ends at 1") << 4 << 1 << (QList<int>() << 0);
        QTest::newRow("both at 0") << 6 << 0 << (QList<int>() << 0);
        QTest::newRow("negative address") << 6 << -1 << QList<int>();
        QTest::newRow("lowest address") << 6 << INT_MIN << QList<int>();
    }

    void marksOfPairs()
    {
        QFETCH(int, flags);
        QFETCH(int, address);
        QFETCH(QList<int>, pairs);
        DriverFixture runtime;
        record(1, "D", address).monitorFlags = flags;
        wordChange(0, 1, address);
        QCOMPARE(runtime.reports, reportsOf("D32", pairs));
    }

    void bitsThenWholeThenPairs()
    {
        DriverFixture runtime;
        record(1, "D", 10).monitorFlags = 7;
        record(1, "D", 10).bitMonitorMask = 0x8001;
        wordChange(0, 0xFFFF);
        QCOMPARE(runtime.reports, inOrder({reportsOf("D_bit", {160, 175}), reportsOf("D", {10}),
                                           reportsOf("D32", {10, 9})}));
    }

    void reportsCarryLinkAndStation()
    {
        DriverFixture runtime("7#0#0#3#32");
        record(4, "SD", 10).monitorFlags = 1;
        int oldWord = 0;
        int newWord = 1;
        _wordDataChange(&oldWord, &newWord, 4, "SD", 10, 0);
        _OnlyOneDataTypeDataChange(4, "SD", 10, 0, 0, 0, 0);
        const Report expected = {7, 4, "SD", 10};
        QCOMPARE(runtime.reports, QList<Report>() << expected << expected);
        QCOMPARE(oldWord, 0);
        QCOMPARE(newWord, 1);
    }

    void aValueReportedAsAWhole_data() { marksOfTheWholeWord_data(); }

    void aValueReportedAsAWhole()
    {
        QFETCH(int, flags);
        QFETCH(int, whole);
        DriverFixture runtime;
        record(1, "D", 10).monitorFlags = flags;
        record(1, "D", 10).bitMonitorMask = -1;
        _OnlyOneDataTypeDataChange(1, "D", 10, 0, 0, 0, 0);
        QCOMPARE(runtime.reports, reportsOf("D", whole ? QList<int>{10} : QList<int>{}));
    }

    void wholeValuesAndGroupsCreateTheirRecord()
    {
        DriverFixture runtime;
        _OnlyOneDataTypeDataChange(1, "32CV", 205, 0, 0, 0, 0);
        QVERIFY(isCached(1, "32CV", 205));
        _OnlyOneDataTypeDataChange(1, "M", 13, 1, 0, 0, 0);
        QVERIFY(isCached(1, "M", 8));
        QVERIFY(!isCached(1, "M", 13));
        QCOMPARE(runtime.reports, QList<Report>());
    }

    void oneBitOfAGroup_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("reports");
        QTest::newRow("13 is bit 5 of group 8") << 13 << 8 << 0x20 << 1;
        QTest::newRow("13, all bits but 5") << 13 << 8 << 0xDF << 0;
        QTest::newRow("8 is bit 0") << 8 << 8 << 0x01 << 1;
        QTest::newRow("15 is bit 7") << 15 << 8 << 0x80 << 1;
        QTest::newRow("-8 is bit 0 of group -8") << -8 << -8 << 0x01 << 1;
        QTest::newRow("-1: a negative bit number is no bit") << -1 << 0 << -1 << 0;
    }

    void oneBitOfAGroup()
    {
        QFETCH(int, address);
        QFETCH(int, group);
        QFETCH(int, mask);
        QFETCH(int, reports);
        DriverFixture runtime;
        record(1, "M", group).bitMonitorMask = mask;
        _OnlyOneDataTypeDataChange(1, "M", address, 1, 0, 0, 0);
        QCOMPARE(runtime.reports, reportsOf("M", reports ? QList<int>{address} : QList<int>{}));
        QCOMPARE(cachedCount(), 1);
    }

    void changedBitsOfAGroup()
    {
        DriverFixture runtime;
        record(1, "M", 8).bitMonitorMask = 0x8D;                  // bits 0, 2, 3 and 7
        _OnlyOneDataTypeDataChange(1, "M", 13, 1, 0x85, 0x04, 1); // bits 0 and 7 differ
        QCOMPARE(runtime.reports, reportsOf("M", {13, 20}));
    }

    void changedBitsOfAByte()
    {
        DriverFixture runtime;
        record(1, "M", 8).bitMonitorMask = 0x8D;
        byteChange(0x87, 0x04); // bits 0, 1 and 7 differ
        byteChange(0x5A, 0x5A);
        QCOMPARE(runtime.reports, reportsOf("M", {8, 15}));
    }

    void aByteOfAnyAddressHasItsOwnMarks()
    {
        DriverFixture runtime;
        record(1, "M", 8).bitMonitorMask = 0xFF;
        byteChange(0xFF, 0x00, 13);
        QCOMPARE(runtime.reports, QList<Report>());
        QVERIFY(isCached(1, "M", 13));
        record(1, "M", 13).bitMonitorMask = 0x02;
        byteChange(0xFF, 0x00, 13);
        QCOMPARE(runtime.reports, reportsOf("M", {14}));
    }
};

QTEST_APPLESS_MAIN(ChangeNotificationTest)
#include "tst_change_notification.moc"
