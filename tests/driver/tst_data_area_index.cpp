#include "driver/data_area_index.h"

#include <QtTest/QTest>

#include <algorithm>

namespace
{

_DATA_ area(int station, const char* regType, int address)
{
    _DATA_ made = _DATA_();
    made.station = station;
    made.regType = QString(regType);
    made.address = address;
    return made;
}

QList<_DATA_> words(int count)
{
    QList<_DATA_> list;
    for (int i = 0; i < count; ++i)
        list << area(1, "D", 3 * i);
    return list;
}

} // namespace

Q_DECLARE_METATYPE(_DATA_)

class DataAreaIndexTest : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingInAnEmptyList();
    void findsEveryRecord_data();
    void findsEveryRecord();
    void everyPartOfTheKeyCounts_data();
    void everyPartOfTheKeyCounts();
    void findsTheFirstOfEqualRecords();
    void noticesRecordsAppendedOutside();
    void noticesAListChangedOutside_data();
    void noticesAListChangedOutside();
    void noticesThatTheOnlyRecordIsGone();
    void noticesALongListChangedOutside_data();
    void noticesALongListChangedOutside();
    void indexesAnewAfterAReset();
    void remembersWhetherItIsUndisturbed();
    void findsAppendedRecordsWhileUndisturbed();
    void aRunIsWhatLiesBehindTheRecordFoundLast();
    void thereIsNoRun_data();
    void thereIsNoRun();
    void learnsWhichRecordComesNext();

private:
    static int find(DataAreaIndex& index, const QList<_DATA_>& list, const char* regType,
                    int address)
    {
        return index.find(list, 1, QString(regType), address);
    }
};

void DataAreaIndexTest::findsNothingInAnEmptyList()
{
    DataAreaIndex index;
    QCOMPARE(find(index, {}, "D", 0), -1);
}

void DataAreaIndexTest::findsEveryRecord_data()
{
    QTest::addColumn<bool>("undisturbed");
    QTest::newRow("the list may change between searches") << false;
    QTest::newRow("nobody touches the list") << true;
}

void DataAreaIndexTest::findsEveryRecord()
{
    QFETCH(bool, undisturbed);
    const QList<_DATA_> list = words(1000); // D0, D3, ... D2997
    DataAreaIndex index;
    index.setUndisturbed(undisturbed);
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(find(index, list, "D", 3 * i), i);
    for (int i = 999; i >= 0; --i)
        QCOMPARE(find(index, list, "D", 3 * i), i);
    QCOMPARE(find(index, list, "D", 1), -1);
    QCOMPARE(find(index, list, "D", 3000), -1);
}

void DataAreaIndexTest::everyPartOfTheKeyCounts_data()
{
    QTest::addColumn<int>("station");
    QTest::addColumn<QString>("regType");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("expected");
    QTest::newRow("the record") << 1 << "D" << 5 << 0;
    QTest::newRow("another station") << 2 << "D" << 5 << 1;
    QTest::newRow("another type") << 1 << "SD" << 5 << 2;
    QTest::newRow("another address") << 1 << "D" << 6 << 3;
    QTest::newRow("no type") << 1 << "" << 5 << 4;
    QTest::newRow("lower case") << 1 << "d" << 5 << -1;
    QTest::newRow("a station not there") << 3 << "D" << 5 << -1;
    // Same length, first, middle and last letter as the next: told apart whole.
    QTest::newRow("long names") << 1 << "aXbXcXe" << 5 << 5;
    QTest::newRow("long names alike") << 1 << "aXcXcXe" << 5 << 6;
}

void DataAreaIndexTest::everyPartOfTheKeyCounts()
{
    QFETCH(int, station);
    QFETCH(QString, regType);
    QFETCH(int, address);
    QFETCH(int, expected);
    const QList<_DATA_> list = {area(1, "D", 5),      area(2, "D", 5), area(1, "SD", 5),
                                area(1, "D", 6),      area(1, "", 5),  area(1, "aXbXcXe", 5),
                                area(1, "aXcXcXe", 5)};
    DataAreaIndex index;
    QCOMPARE(index.find(list, station, regType, address), expected);
}

void DataAreaIndexTest::findsTheFirstOfEqualRecords()
{
    const QList<_DATA_> list = {area(1, "D", 5), area(1, "D", 6), area(1, "D", 5), area(1, "D", 6),
                                area(1, "D", 7)};
    DataAreaIndex index;
    for (const bool undisturbed : {false, true}) {
        index.setUndisturbed(undisturbed);
        QCOMPARE(find(index, list, "D", 6), 1);
        QCOMPARE(find(index, list, "D", 5), 0);
        QCOMPARE(find(index, list, "D", 6), 1);
        QCOMPARE(find(index, list, "D", 7), 4);
    }
}

void DataAreaIndexTest::noticesRecordsAppendedOutside()
{
    QList<_DATA_> list = words(20);
    DataAreaIndex index;
    QCOMPARE(find(index, list, "M", 8), -1);
    list << area(1, "M", 8);
    QCOMPARE(find(index, list, "M", 8), 20);
}

void DataAreaIndexTest::noticesAListChangedOutside_data()
{
    QTest::addColumn<QList<_DATA_>>("list");
    QList<_DATA_> firstGone = words(20);
    firstGone.removeFirst();
    QList<_DATA_> lastGone = words(20);
    lastGone.removeLast();
    QList<_DATA_> otherOrder = words(20);
    otherOrder.swapItemsAt(0, 19);
    QList<_DATA_> otherStart = words(20);
    otherStart.swapItemsAt(0, 1);
    QTest::newRow("cleared") << QList<_DATA_>();
    QTest::newRow("the first record gone") << firstGone;
    QTest::newRow("the last record gone") << lastGone;
    QTest::newRow("the first and the last exchanged") << otherOrder;
    QTest::newRow("the first two exchanged") << otherStart;
    QList<_DATA_> otherKey = words(20);
    otherKey[18].address = 500;
    QTest::newRow("a key changed in the middle") << otherKey;
    QTest::newRow("other records, as many") << QList<_DATA_>(words(40).mid(20));
    QTest::newRow("other records, more") << QList<_DATA_>(words(80).mid(20));
}

void DataAreaIndexTest::noticesAListChangedOutside()
{
    QFETCH(QList<_DATA_>, list);
    const QList<_DATA_> before = words(20);
    DataAreaIndex index;
    QCOMPARE(find(index, before, "D", 57), 19);
    for (int i = 0; i < list.size(); ++i)
        QCOMPARE(find(index, list, "D", list.at(i).address), i);
    QCOMPARE(find(index, list, "D", -3), -1);
}

void DataAreaIndexTest::noticesThatTheOnlyRecordIsGone()
{
    QList<_DATA_> list = words(1);
    DataAreaIndex index;
    QCOMPARE(find(index, list, "D", 0), 0);
    list.removeLast(); // what it held may still be in memory
    QCOMPARE(find(index, list, "D", 0), -1);
}

// Lists of more records than are compared one by one.
void DataAreaIndexTest::noticesALongListChangedOutside_data()
{
    QTest::addColumn<QList<_DATA_>>("list");
    const QList<_DATA_> before = words(500);
    QList<_DATA_> firstGone = before;
    firstGone.removeFirst();
    QList<_DATA_> lastGone = before;
    lastGone.removeLast();
    QList<_DATA_> reversedInside = before;
    std::reverse(reversedInside.begin() + 1, reversedInside.end() - 1);
    QList<_DATA_> twoExchanged = before;
    twoExchanged.swapItemsAt(300, 301);
    QList<_DATA_> othersInside = before;
    for (int i = 1; i < 499; ++i)
        othersInside[i].address += 1;
    QTest::newRow("the first record gone") << firstGone;
    QTest::newRow("the last record gone") << lastGone;
    QList<_DATA_> otherLast = before;
    otherLast[499].address = 9999;
    QTest::newRow("the last record replaced") << otherLast;
    QTest::newRow("another order between the same ends") << reversedInside;
    QTest::newRow("two exchanged in the middle") << twoExchanged;
    QTest::newRow("other records between the same ends") << othersInside;
    QTest::newRow("other records, as many") << QList<_DATA_>(words(1000).mid(500));
    QTest::newRow("other records, more") << QList<_DATA_>(words(2000).mid(500));
    QTest::newRow("fewer") << words(65);
}

void DataAreaIndexTest::noticesALongListChangedOutside()
{
    QFETCH(QList<_DATA_>, list);
    for (const bool undisturbed : {false, true}) {
        DataAreaIndex index;
        QCOMPARE(find(index, words(500), "D", 1497), 499);
        QCOMPARE(find(index, words(500), "D", 903), 301);
        index.setUndisturbed(undisturbed);
        for (int i = 0; i < list.size(); ++i)
            QCOMPARE(find(index, list, "D", list.at(i).address), i);
        QCOMPARE(find(index, list, "D", -3), -1);
    }
}

void DataAreaIndexTest::indexesAnewAfterAReset()
{
    DataAreaIndex index;
    QCOMPARE(find(index, words(20), "D", 57), 19);
    index.reset();
    QCOMPARE(find(index, {}, "D", 57), -1);
    QCOMPARE(find(index, {area(1, "D", 57)}, "D", 57), 0);
}

void DataAreaIndexTest::remembersWhetherItIsUndisturbed()
{
    DataAreaIndex index;
    QCOMPARE(index.setUndisturbed(true), false);
    QCOMPARE(index.setUndisturbed(true), true);
    QCOMPARE(index.setUndisturbed(false), true);
    QCOMPARE(index.setUndisturbed(false), false);

    // What was disturbed in between is noticed by the next undisturbed search.
    index.setUndisturbed(true);
    QCOMPARE(find(index, words(20), "D", 57), 19);
    index.setUndisturbed(false);
    index.setUndisturbed(true);
    QCOMPARE(find(index, words(5), "D", 57), -1);
    QCOMPARE(find(index, words(5), "D", 12), 4);
}

void DataAreaIndexTest::findsAppendedRecordsWhileUndisturbed()
{
    DataAreaIndex index;
    index.setUndisturbed(true);
    QList<_DATA_> list;
    for (int i = 0; i < 200; ++i) {
        QCOMPARE(find(index, list, "D", i), -1);
        list << area(1, "D", i);
        QCOMPARE(find(index, list, "D", i), i);
        QCOMPARE(find(index, list, "D", i / 2), i / 2);
    }
}

void DataAreaIndexTest::aRunIsWhatLiesBehindTheRecordFoundLast()
{
    const QList<_DATA_> list = words(20); // D0, D3, ... D57
    DataAreaIndex index;
    index.setUndisturbed(true);
    QCOMPARE(find(index, list, "D", 15), 5);
    QCOMPARE(index.runStart(), 6);
    QCOMPARE(index.runEnd(), 20);
    index.goOnFrom(9);
    QCOMPARE(index.runStart(), 10);
    QCOMPARE(find(index, list, "D", 30), 10);
    QCOMPARE(find(index, list, "D", 30), 10);
    QCOMPARE(index.runStart(), 11);
    index.goOnFrom(19);
    QCOMPARE(index.runStart(), index.runEnd());
}

void DataAreaIndexTest::thereIsNoRun_data()
{
    QTest::addColumn<QList<_DATA_>>("list");
    QTest::addColumn<bool>("undisturbed");
    QTest::newRow("when the list may change") << words(20) << false;
    QTest::newRow("when a key is there twice") << words(20) + words(1) << true;
}

void DataAreaIndexTest::thereIsNoRun()
{
    QFETCH(QList<_DATA_>, list);
    QFETCH(bool, undisturbed);
    DataAreaIndex index;
    index.setUndisturbed(undisturbed);
    QCOMPARE(find(index, list, "D", 15), 5);
    QCOMPARE(index.runStart(), index.runEnd());
    QVERIFY(index.runEnd() <= list.size());
}

void DataAreaIndexTest::learnsWhichRecordComesNext()
{
    const QList<_DATA_> list = words(20);
    DataAreaIndex index;
    index.setUndisturbed(true);
    for (int round = 0; round < 3; ++round) {
        for (const int record : {5, 2, 19, 3, 4})
            QCOMPARE(find(index, list, "D", 3 * record), record);
    }
    // Record 2 came after 5, so what lies behind 5 is not expected.
    QCOMPARE(find(index, list, "D", 15), 5);
    QCOMPARE(index.runStart(), index.runEnd());
    QCOMPARE(find(index, list, "D", 18), 6);
    QCOMPARE(find(index, list, "D", 9), 3);
    QCOMPARE(index.runStart(), 4);
}

QTEST_APPLESS_MAIN(DataAreaIndexTest)
#include "tst_data_area_index.moc"
