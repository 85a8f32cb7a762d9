#include "data/record_table.h"

#include <QtTest/QTest>

namespace
{

_DATA_ record(int station, const char* regType, int address)
{
    _DATA_ made = _DATA_();
    made.station = station;
    made.regType = QString(regType);
    made.address = address;
    return made;
}

// A table and the list that it belongs to.
struct Filled {
    QList<_DATA_> list;
    RecordTable table;

    void add(const _DATA_& made)
    {
        list << made;
        table.add(list, static_cast<int>(list.size()) - 1);
    }

    int group(int station, const char* regType, int address) const
    {
        return table.findGroup(list, station, QString(regType), address);
    }

    int find(int station, const char* regType, int address) const
    {
        const int found = group(station, regType, address);
        return found == RecordTable::NONE ? found
                                          : table.records(found)[RecordTable::placeOf(address)];
    }

    // Of D registers of station 1 at those addresses, and after them of the key.
    QList<int> findTogether(const QList<int>& addresses, const RecordKey& last) const
    {
        const QString d("D");
        std::vector<RecordKey> keys;
        for (const int address : addresses)
            keys.push_back({1, &d, address});
        keys.push_back(last);
        std::vector<int> records(keys.size() + 1, 12345);
        table.findRecords(list, keys.data(), static_cast<int>(keys.size()), records.data());
        QList<int> found;
        for (const int one : records)
            found << one;
        return found;
    }

    int next(int group, int address)
    {
        return table.nextGroup(group, list, 1, QString("D"), address);
    }
};

} // namespace

class RecordTableTest : public QObject
{
    Q_OBJECT

private slots:
    void anEmptyTableFindsNothing()
    {
        Filled empty;
        empty.list << record(1, "D", 0);
        QCOMPARE(empty.find(1, "D", 0), -1);
    }

    void theWholeKeyCounts()
    {
        Filled filled;
        filled.add(record(1, "D", 7));
        filled.add(record(2, "D", 7));
        filled.add(record(1, "M", 7));
        filled.add(record(1, "D", 8));
        QCOMPARE(filled.find(1, "D", 7), 0);
        QCOMPARE(filled.find(2, "D", 7), 1);
        QCOMPARE(filled.find(1, "M", 7), 2);
        QCOMPARE(filled.find(1, "D", 8), 3);
        QCOMPARE(filled.find(2, "M", 7), -1);
        QCOMPARE(filled.find(1, "d", 7), -1);
        QCOMPARE(filled.find(1, "D", 6), -1);
    }

    void theFirstOfAKeyIsFound()
    {
        Filled filled;
        filled.add(record(1, "D", 7));
        filled.add(record(1, "D", 7));
        QCOMPARE(filled.find(1, "D", 7), 0);
    }

    void keysAreFoundTogether()
    {
        const QString m("M");
        Filled filled;
        QCOMPARE(filled.findTogether({7}, {1, &m, 7}), QList<int>({-1, -1, 12345}));
        for (int i = 0; i < 100; ++i)
            filled.add(record(1, "D", 9 * i));
        filled.add(record(2, "M", 7));
        const QList<int> addresses = {0, 891, 9, 1, 9, 900, -9, 450, 18, 27, 36, 45, 54, 63, 72};
        QCOMPARE(filled.findTogether(addresses, {2, &m, 7}),
                 QList<int>({0, 99, 1, -1, 1, -1, -1, 50, 2, 3, 4, 5, 6, 7, 8, 100, 12345}));
        QCOMPARE(filled.findTogether({}, {1, &m, 7}), QList<int>({-1, 12345}));
    }

    // The hash takes the first, the fourth and the last of six letters.
    void keysOfOneHashAreNotMistaken()
    {
        const QString known("ABCDEF");
        const QString other("AXCDEF");
        Filled filled;
        filled.add(record(1, "ABCDEF", 7));
        QCOMPARE(filled.findTogether({}, {1, &known, 7}), QList<int>({0, 12345}));
        QCOMPARE(filled.findTogether({}, {1, &other, 7}), QList<int>({-1, 12345}));
        filled.add(record(1, "AXCDEF", 7));
        QCOMPARE(filled.findTogether({}, {1, &other, 7}), QList<int>({-1, 12345}));
        QCOMPARE(filled.find(1, "AXCDEF", 7), 1);
    }

    // 279529839 / 8 is what the hashes of D at stations 1 and 54 differ by.
    void stationsOfOneHashAreNotMistaken()
    {
        const QString d("D");
        Filled filled;
        filled.add(record(1, "D", 7));
        QCOMPARE(filled.findTogether({7}, {54, &d, 279529839}), QList<int>({0, -1, 12345}));
        filled.add(record(54, "D", 279529839));
        QCOMPARE(filled.findTogether({7}, {54, &d, 279529839}), QList<int>({0, -1, 12345}));
        QCOMPARE(filled.find(54, "D", 279529839), 1);
    }

    // D7 tells for D0 to D6, which are not there, whose group it is.
    void aGroupIsKnownByAnyOfItsRecords_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("regType");
        QTest::addColumn<int>("address");
        QTest::addColumn<bool>("expected");
        QTest::newRow("the record") << 1 << "D" << 7 << true;
        QTest::newRow("its first neighbour") << 1 << "D" << 0 << true;
        QTest::newRow("another station's") << 2 << "D" << 0 << false;
        QTest::newRow("another station's record") << 2 << "D" << 7 << false;
        QTest::newRow("another type's") << 1 << "SD" << 0 << false;
        QTest::newRow("the next group") << 1 << "D" << 8 << false;
        QTest::newRow("the same place of the next group") << 1 << "D" << 15 << false;
        QTest::newRow("the group before") << 1 << "D" << -1 << false;
    }

    void aGroupIsKnownByAnyOfItsRecords()
    {
        QFETCH(int, station);
        QFETCH(QString, regType);
        QFETCH(int, address);
        QFETCH(bool, expected);
        Filled filled;
        filled.add(record(1, "D", 7));
        const int group = filled.group(1, "D", 7);
        QCOMPARE(filled.table.isGroupOf(group, filled.list, station, regType, address), expected);
        QVERIFY(!filled.table.isGroupOf(-1, filled.list, station, regType, address));
    }

    void aGroupKnowsTheNext()
    {
        Filled filled;
        filled.add(record(1, "D", 7));
        const int first = filled.group(1, "D", 7);
        QCOMPARE(filled.next(first, 8), -1);
        filled.add(record(2, "D", 8));
        QCOMPARE(filled.next(first, 8), -1);
        filled.add(record(1, "D", 15));
        const int second = filled.group(1, "D", 15);
        QCOMPARE(filled.next(first, 8), second);
        QCOMPARE(filled.next(first, 8), second);
        QCOMPARE(filled.next(second, 16), -1);
    }

    // Begins with 64 places and doubles when four fifths are taken: at 52, 103, 205, ...
    void growsWithItsGroups()
    {
        Filled filled;
        for (int i = 0; i < 1000; ++i)
            filled.add(record(1, "D", 9 * i));
        for (int i = 0; i < 1000; ++i)
            QCOMPARE(filled.find(1, "D", 9 * i), i);
        QCOMPARE(filled.find(1, "D", 1), -1);
        QCOMPARE(filled.find(1, "D", 9000), -1);
    }

    void aClearedTableIsEmpty()
    {
        Filled filled;
        filled.add(record(1, "D", 7));
        filled.table.clear();
        QCOMPARE(filled.find(1, "D", 7), -1);
        filled.table.add(filled.list, 0);
        QCOMPARE(filled.find(1, "D", 7), 0);
    }
};

QTEST_APPLESS_MAIN(RecordTableTest)
#include "tst_record_table.moc"
