#include "planning/range_text.h"
#include "planning/read_jobs.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <algorithm>
#include <iterator>

namespace
{

int flagsOf(const char* regType, int address)
{
    for (const _DATA_& area : driver.dataAreas) {
        if (area.regType == QString(regType) && area.address == address)
            return area.monitorFlags;
    }
    return -1;
}

} // namespace

class ReadJobsTest : public QObject
{
    Q_OBJECT

private slots:
    void plans_data();
    void plans();
    void jobsAreCyclicReads();
    void theListIsLeftAlone();
    void watchesWhatIsListedAndNothingElse();
    void missingRecordsAreCreatedInTheOrderOfTheList();
    void anEmptyListUnwatchesEverything();
    void aSecondListReplacesThePlan();
    void nothingOfThePlanBeforeSurvives();
    void newJobsHaveABlankPayload();
    void aPayloadOfAReadIsLeftAsItIs();
    void aPlanIsSharedWithNobody();
    void aJobLookedAtIsTheOneInTheList();
    void aJobLookedAtStaysThroughPolls();
    void touchesNothingElse();
};

void ReadJobsTest::plans_data()
{
    QTest::addColumn<int>("maxWords");
    QTest::addColumn<QString>("watched");
    QTest::addColumn<QString>("jobs");
    QTest::addColumn<int>("result");
    const auto row = [](const char* name, int maxWords, const char* watched, const char* jobs,
                        int result) {
        QTest::newRow(name) << maxWords << QString(watched) << QString(jobs) << result;
    };
    row("one range", 5, "1 D 100 x5", "1 D 100 x5", 1);
    row("one range longer than the limit", 32, "1 D 0 x100", "1 D 0 x100, 1 D 0 x100, 1 D 0 x100",
        3);
    row("overlapping ranges", 16, "1 D 0 x10, 1 D 5 x10", "1 D 0 x15", 1);
    row("two stations", 32, "1 D 0 x1, 2 D 0 x1", "1 D 0 x1, 2 D 0 x1", 2);
    row("gaps are bridged", 32, "1 D 40 x1, 1 D 10 x1, 1 D 2 x2, 1 D 0 x2", "1 D 0 x11, 1 D 40 x1",
        2);
    row("bits count single bits", 32, "1 M 0 x3, 1 M 10 x1", "1 M 0 x11", 1);
    row("in the order of the weights", 32, "1 Z 0 x1, 1 X 3 x1, 1 TV 0 x1, 1 CV 0 x1",
        "1 X 3 x1, 1 TV 0 x1, 1 CV 0 x1, 1 Z 0 x1", 4);
    row("station 0", 32, "0 D 0 x1", "0 D 0 x1", 1);
    row("unknown type", 32, "1 Q 7 x2", "1 Q 7 x2", 1);
}

void ReadJobsTest::plans()
{
    QFETCH(int, maxWords);
    QFETCH(QString, watched);
    QFETCH(QString, jobs);
    QFETCH(int, result);
    DriverFixture runtime;
    driver.maxWords = maxWords;
    QList<KEY_ADDRESS> keys = ranges(watched);
    QCOMPARE(intf_addrMerge(keys), result);
    QCOMPARE(textOf(driver.readList), jobs);
    QCOMPARE(driver.intList.size(), 0);
}

void ReadJobsTest::jobsAreCyclicReads()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys = ranges("1 D 0 x1, 1 M 0 x1");
    intf_addrMerge(keys);
    QCOMPARE(driver.readList.size(), 2);
    QCOMPARE(driver.readList.at(0).kind, 4);
    QCOMPARE(driver.readList.at(1).kind, 4);
}

void ReadJobsTest::theListIsLeftAlone()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys = ranges("1 D 5 x1, 1 D 0 x5, 1 C 7 x1");
    keys[0].keyName = "name";
    keys[0].data[9] = 99;
    intf_addrMerge(keys);
    QCOMPARE(textOf(keys), QString("1 D 5 x1, 1 D 0 x5, 1 C 7 x1"));
    QCOMPARE(keys.at(0).keyName, QString("name"));
    QCOMPARE(int(keys.at(0).data[9]), 99);
    QCOMPARE(keys.at(2).keyTag1, 2);
}

void ReadJobsTest::watchesWhatIsListedAndNothingElse()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys =
        ranges("1 D 10 x1, 1 D 2 x2, 0 D 2 x1, 1 M 9 x2, 1 32CV 200 x2, 1 Q 0 x1");
    intf_addrMerge(keys);
    // In the order of the list, before sorting; bridged registers get no record.
    QStringList records;
    for (const _DATA_& area : driver.dataAreas)
        records << QString("%1 %2%3 flags %4 mask %5")
                       .arg(area.station)
                       .arg(area.regType)
                       .arg(area.address)
                       .arg(area.monitorFlags)
                       .arg(area.bitMonitorMask);
    QCOMPARE(records, QStringList({"1 D10 flags 1 mask 0", "1 D2 flags 1 mask 0",
                                   "1 D3 flags 1 mask 0", "0 D2 flags 1 mask 0",
                                   "1 M8 flags 0 mask 6", "1 32CV200 flags 1 mask 0"}));
}

// More entries than are looked up together, some of them known, some of several addresses.
void ReadJobsTest::missingRecordsAreCreatedInTheOrderOfTheList()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> known;
    for (int address = 0; address < 40; address += 3)
        known << key(1, "D", address, 1);
    intf_addrMerge(known);
    QList<KEY_ADDRESS> all;
    for (int address = 39; address >= 0; --address)
        all << key(1, "D", address, 1);
    all << key(1, "no type", 0, 1) << key(1, "D", 39, 3) << key(1, "D", 38, 0) << key(1, "M", 9, 1);
    intf_addrMerge(all);

    QList<int> addresses;
    for (const _DATA_& area : driver.dataAreas) {
        addresses << area.address;
        QCOMPARE(area.monitorFlags, area.regType == "D" ? 1 : 0);
        QCOMPARE(area.bitMonitorMask, area.regType == "M" ? 2 : 0);
    }
    QCOMPARE(addresses, QList<int>({0,  3,  6,  9,  12, 15, 18, 21, 24, 27, 30, 33, 36, 39, 38,
                                    37, 35, 34, 32, 31, 29, 28, 26, 25, 23, 22, 20, 19, 17, 16,
                                    14, 13, 11, 10, 8,  7,  5,  4,  2,  1,  40, 41, 8}));
}

void ReadJobsTest::anEmptyListUnwatchesEverything()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys = ranges("1 D 0 x1, 1 M 0 x1");
    intf_addrMerge(keys);
    driver.dataAreas[0].monitorFlags = 7;
    driver.dataAreas[0].bitMonitorMask = 7;
    driver.dataAreas[0].value[0] = 42;
    QList<KEY_ADDRESS> none;
    QCOMPARE(intf_addrMerge(none), 0);
    QCOMPARE(driver.readList.size(), 0);
    QCOMPARE(driver.dataAreas.size(), 2);
    for (const _DATA_& area : driver.dataAreas) {
        QCOMPARE(area.monitorFlags, 0);
        QCOMPARE(area.bitMonitorMask, 0);
    }
    QCOMPARE(int(driver.dataAreas.at(0).value[0]), 42);
}

void ReadJobsTest::aSecondListReplacesThePlan()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> all = ranges("1 D 0 x1, 1 D 1 x1, 1 D 100 x1");
    QList<KEY_ADDRESS> fewer = ranges("1 D 1 x1");
    QCOMPARE(intf_addrMerge(all), 2);
    QCOMPARE(intf_addrMerge(fewer), 1);
    QCOMPARE(textOf(driver.readList), QString("1 D 1 x1"));
    QCOMPARE(flagsOf("D", 0), 0);
    QCOMPARE(flagsOf("D", 1), 1);
    QCOMPARE(flagsOf("D", 100), 0);
}

void ReadJobsTest::nothingOfThePlanBeforeSurvives()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> before;
    before << key(1, "D", 0, 4) << key(2, "M", 8, 4) << key(3, "Y", 0, 1);
    QCOMPARE(intf_addrMerge(before), 3);
    driver.readList[0] = job(9, "Z", 3, 7);
    driver.readList[0].kind = 2;

    QList<KEY_ADDRESS> now;
    now << key(1, "D", 100, 1);
    QCOMPARE(intf_addrMerge(now), 1);
    QCOMPARE(driver.readList.size(), 1);
    const VARIABLE& planned = driver.readList.at(0);
    QCOMPARE(planned.kind, 4);
    QCOMPARE(planned.station, 1);
    QCOMPARE(planned.regType, QString("D"));
    QCOMPARE(planned.address, 100);
    QCOMPARE(planned.count, 1);
}

void ReadJobsTest::newJobsHaveABlankPayload()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys;
    keys << key(1, "D", 0, 1) << key(2, "M", 8, 4);
    for (KEY_ADDRESS& watched : keys)
        std::fill(std::begin(watched.data), std::end(watched.data),
                  static_cast<unsigned char>(0xAA));
    QCOMPARE(intf_addrMerge(keys), 2);
    for (const VARIABLE& planned : static_cast<const QList<VARIABLE>&>(driver.readList)) {
        for (const unsigned char byte : planned.data)
            QCOMPARE(int(byte), 0);
    }
}

// What a runtime left in the payload of a read stays there, and goes nowhere.
void ReadJobsTest::aPayloadOfAReadIsLeftAsItIs()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys;
    keys << key(1, "D", 100, 1) << key(2, "D", 100, 1);
    QCOMPARE(intf_addrMerge(keys), 2);
    for (int byte = 0; byte < PAYLOAD_SIZE; ++byte)
        driver.readList[0].data[byte] = 0xAA;
    QCOMPARE(intf_addrMerge(keys), 2);
    QCOMPARE(int(driver.readList.at(0).data[0]), 0xAA);
    QCOMPARE(int(driver.readList.at(0).data[1023]), 0xAA);
    QCOMPARE(int(driver.readList.at(1).data[0]), 0);
    // station 1, function 3, register 100, count 1
    QCOMPARE(runtime.poll(), withCrc("01 03 00 64 00 01"));
}

// A plan may take megabytes: neither the driver nor who writes into it copies it.
void ReadJobsTest::aPlanIsSharedWithNobody()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys;
    for (int station = 1; station <= 8; ++station)
        keys << key(station, "D", 0, 1);
    QCOMPARE(intf_addrMerge(keys), 8);
    const QList<VARIABLE>& jobs = driver.readList;
    QVERIFY(jobs.isDetached());
    QVERIFY(!runtime.poll().isEmpty());
    QVERIFY(jobs.isDetached());
    dealListWhenFinish();
    QVERIFY(jobs.isDetached());
}

// The list is the runtime's to change: what it looks at must show what it writes.
void ReadJobsTest::aJobLookedAtIsTheOneInTheList()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys;
    keys << key(1, "D", 0, 1) << key(2, "D", 0, 1) << key(3, "D", 0, 1);
    QCOMPARE(intf_addrMerge(keys), 3);
    for (int polls = 0; polls < 4; ++polls) {
        const VARIABLE& second = driver.readList.at(1);
        driver.readList[1].address = 70 + polls;
        QCOMPARE(second.address, 70 + polls);
        QVERIFY(!runtime.poll().isEmpty());
        dealListWhenFinish();
    }
}

// Each job lies by itself in Qt 4's and Qt 5's list, and in Qt 6's while nothing is appended.
void ReadJobsTest::aJobLookedAtStaysThroughPolls()
{
    DriverFixture runtime;
    QList<KEY_ADDRESS> keys;
    keys << key(1, "D", 0, 1);
    QCOMPARE(intf_addrMerge(keys), 1);
    const VARIABLE& only = driver.readList.at(0);
    driver.readList[0].count = 2;
    QVERIFY(!runtime.poll().isEmpty());
    QCOMPARE(runtime.deal(withCrc("01 03 04 00 01 00 02")), 1);
    QCOMPARE(only.count, 2);
    driver.readList[0].count = 3;
    QCOMPARE(only.count, 3);
    QVERIFY(&only == &driver.readList.at(0));
}

void ReadJobsTest::touchesNothingElse()
{
    DriverFixture runtime;
    driver.writeList << job(1, "D", 7, 1);
    driver.condList << job(1, "D", 8, 1);
    driver.intList << 3;
    driver.burstCount = 2;
    driver.currentKind = 3;
    QList<KEY_ADDRESS> keys = ranges("1 D 0 x1");
    intf_addrMerge(keys);
    QCOMPARE(textOf(driver.writeList), QString("1 D 7 x1"));
    QCOMPARE(textOf(driver.condList), QString("1 D 8 x1"));
    QCOMPARE(driver.intList, QList<int>({3}));
    QCOMPARE(driver.burstCount, 2);
    QCOMPARE(driver.currentKind, 3);
    QCOMPARE(runtime.reports.size(), 0);
}

QTEST_APPLESS_MAIN(ReadJobsTest)
#include "tst_read_jobs.moc"
