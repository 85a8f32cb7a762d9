#include "data/cached_record.h"
#include "data/data_areas.h"

#include <QtTest/QTest>

#include <climits>

class DataAreasTest : public QObject
{
    Q_OBJECT

private slots:
    void createsAZeroedRecord()
    {
        QList<_DATA_> list;
        QCOMPARE(getIndexOfDataArea(3, "D", 100, list), 0);
        QCOMPARE(static_cast<int>(list.size()), 1);
        const _DATA_& area = list.first();
        QCOMPARE(int(area.commError), 0);
        QCOMPARE(int(area.writePending), 0);
        QCOMPARE(area.reserved, 0);
        QCOMPARE(area.monitorFlags, 0);
        QCOMPARE(area.bitMonitorMask, 0);
        QCOMPARE(area.station, 3);
        QCOMPARE(area.regType, QString("D"));
        QCOMPARE(area.address, 100);
        for (int byte = 0; byte < 4; ++byte) {
            QCOMPARE(int(area.value[byte]), 0);
            QCOMPARE(int(area.writeValue[byte]), 0);
        }
    }

    void findsTheSameRecordAgain()
    {
        QList<_DATA_> list;
        getIndexOfDataArea(1, "D", 99, list);
        QCOMPARE(getIndexOfDataArea(1, "D", 100, list), 1);
        list[1].value[0] = 7;
        QCOMPARE(getIndexOfDataArea(1, "D", 100, list), 1);
        QCOMPARE(static_cast<int>(list.size()), 2);
        QCOMPARE(int(list[1].value[0]), 7);
    }

    void everyPartOfTheKeyCounts_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::newRow("other station") << 2 << "D" << 100;
        QTest::newRow("station with the same low byte") << 257 << "D" << 100;
        QTest::newRow("other type") << 1 << "SD" << 100;
        QTest::newRow("other case") << 1 << "d" << 100;
        QTest::newRow("empty type") << 1 << "" << 100;
        QTest::newRow("other address") << 1 << "D" << 101;
        QTest::newRow("negative address") << 1 << "D" << -100;
        QTest::newRow("lowest address") << 1 << "D" << INT_MIN;
    }

    void everyPartOfTheKeyCounts()
    {
        QFETCH(int, station);
        QFETCH(QString, type);
        QFETCH(int, address);
        QList<_DATA_> list;
        getIndexOfDataArea(1, "D", 100, list);
        QCOMPARE(getIndexOfDataArea(station, type, address, list), 1);
        QCOMPARE(list.at(1).station, station);
        QCOMPARE(list.at(1).regType, type);
        QCOMPARE(list.at(1).address, address);
        QCOMPARE(getIndexOfDataArea(1, "D", 100, list), 0);
        QCOMPARE(static_cast<int>(list.size()), 2);
    }

    // However many strings the runtime makes of it, one copy is kept.
    void recordsOfATypeShareItsName()
    {
        QList<_DATA_> list;
        for (int i = 0; i < 3; ++i)
            getIndexOfDataArea(i, QString::fromLatin1("32CV"), 200, list);
        QVERIFY(list.at(0).regType.isSharedWith(list.at(2).regType));
        QCOMPARE(list.at(2).regType, QString("32CV"));
    }

    void theFirstOfEqualRecordsIsFound()
    {
        QList<_DATA_> list;
        getIndexOfDataArea(1, "D", 5, list);
        list.append(list.first());
        QCOMPARE(getIndexOfDataArea(1, "D", 5, list), 0);
        QCOMPARE(static_cast<int>(list.size()), 2);
    }

    void recordsKeepTheOrderOfTheirCreation()
    {
        QList<_DATA_> list;
        for (const int address : {500, 3, 77})
            getIndexOfDataArea(1, "D", address, list);
        QCOMPARE(list.at(0).address, 500);
        QCOMPARE(list.at(1).address, 3);
        QCOMPARE(list.at(2).address, 77);
    }

    void anotherListIsNotTheCache()
    {
        DriverFixture runtime;
        QList<_DATA_> list;
        getIndexOfDataArea(1, "D", 5, list);
        QCOMPARE(cachedCount(), 0);
    }

    // A list as long as the cache is, of which one record in the middle differs.
    void aListLikeTheCacheIsSearchedWhole()
    {
        DriverFixture runtime;
        DriverFixture::data(1, "D", 0, 300, 600);
        QList<_DATA_> list = driver.dataAreas;
        list[200].address = 5000;
        QCOMPARE(getIndexOfDataArea(1, "D", 299, driver.dataAreas), 299);
        QCOMPARE(getIndexOfDataArea(1, "D", 5000, list), 200);
        QCOMPARE(static_cast<int>(list.size()), 300);
    }

    void noticesKeysRewrittenFromOutside()
    {
        DriverFixture runtime;
        for (int address = 0; address < 20; ++address)
            getIndexOfDataArea(1, "D", address, driver.dataAreas);
        driver.dataAreas[9].address = 15; // now twice in the list
        QCOMPARE(getIndexOfDataArea(1, "D", 15, driver.dataAreas), 9);
        driver.dataAreas[12].address = 500;
        QCOMPARE(getIndexOfDataArea(1, "D", 500, driver.dataAreas), 12);
        QCOMPARE(getIndexOfDataArea(1, "D", 12, driver.dataAreas), 20);
    }

    void findsRecordsOfALongCache()
    {
        DriverFixture runtime;
        for (int address = 0; address < 1000; ++address)
            QCOMPARE(getIndexOfDataArea(1, "D", address, driver.dataAreas), address);
        for (int address = 0; address < 1000; ++address)
            QCOMPARE(getIndexOfDataArea(1, "D", address, driver.dataAreas), address);
        driver.dataAreas.clear();
        QCOMPARE(getIndexOfDataArea(1, "D", 999, driver.dataAreas), 0);
    }

    void initialisationEmptiesTheCache()
    {
        DriverFixture runtime;
        record(1, "D", 5);
        runtime.initialise("1#0#0#3#32");
        QCOMPARE(cachedCount(), 0);
    }

    void aPendingWriteIsWhatTheRuntimeSees()
    {
        _DATA_ area = _DATA_();
        area.value[0] = 1;
        area.writeValue[0] = 2;
        QCOMPARE(int(visibleValue(area)[0]), 1);
        area.writePending = 1;
        QCOMPARE(int(visibleValue(area)[0]), 2);
        area.writePending = 2;
        QCOMPARE(int(visibleValue(area)[0]), 1);
    }

    void wordsHaveTheLowByteFirst()
    {
        const unsigned char word[] = {0x34, 0x12};
        QCOMPARE(wordOf(word), 0x1234);
        const unsigned char highest[] = {0xFF, 0xFF};
        QCOMPARE(wordOf(highest), 65535);
    }

    void groupsOfEightRoundTowardZero_data()
    {
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("number");
        QTest::newRow("0") << 0 << 0 << 0;
        QTest::newRow("7") << 7 << 0 << 7;
        QTest::newRow("8") << 8 << 8 << 0;
        QTest::newRow("13") << 13 << 8 << 5;
        QTest::newRow("-1") << -1 << 0 << -1;
        QTest::newRow("-9") << -9 << -8 << -1;
    }

    void groupsOfEightRoundTowardZero()
    {
        QFETCH(int, address);
        QTEST(bitGroupStart(address), "start");
        QTEST(bitInGroup(address), "number");
    }
};

QTEST_APPLESS_MAIN(DataAreasTest)
#include "tst_data_areas.moc"
