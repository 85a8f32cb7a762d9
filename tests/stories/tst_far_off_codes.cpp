// Codes that mean something only at a few values, at the edges of int, beside what they
// mean, and with its low bytes: each counts whole.

#include "data/cached_record.h"
#include "data/change_notification.h"
#include "data/write_completion.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "registers/address_weight.h"
#include "registers/checked_address.h"
#include "stories/far_off_codes.h"

#include <QtTest/QTest>

namespace
{

QList<KEY_ADDRESS> d10AndD0()
{
    return {key(1, "D", 10, 1), key(1, "D", 0, 1)};
}

} // namespace

class FarOffCodesTest : public QObject
{
    Q_OBJECT

private slots:
    void kindsOfTypes_data() { addOthersThan({0, 1}); }
    void kindsOfTypes();
    void wordTags_data() { addOthersThan({0}); }
    void wordTags();
    void dataTypes_data() { addOthersThan({-1, 1, 3, 5, 6, 9}); }
    void dataTypes();
    void accessCodes_data() { addOthersThan({1, 2}); }
    void accessCodes();
    void mergeModes_data() { addOthersThan({2}); }
    void mergeModes();
    void weightFlags_data() { addOthersThan({}); }
    void weightFlags();
    void valuesOfARecipeJob_data() { addOthersThan({0}); }
    void valuesOfARecipeJob();
    void ends_data() { addOthersThan({1}); }
    void ends();
    void bitStarts_data() { addOthersThan({0}); }
    void bitStarts();
    void bitsOfAGroup_data() { addOthersThan({0}); }
    void bitsOfAGroup();
    void bitsSet_data() { addOthersThan({0}); }
    void bitsSet();
    void bitIndexes_data() { addOthersThan({-1}); }
    void bitIndexes();
};

void FarOffCodesTest::kindsOfTypes()
{
    QFETCH(int, code);
    QList<QString> names;
    QCOMPARE(intf_getRegListByType(code, names), 0);
    QVERIFY(names.isEmpty());
}

// Any number but 0 is a word tag.
void FarOffCodesTest::wordTags()
{
    QFETCH(int, code);
    QCOMPARE(validity("D", "5", 1, code).result, 0);
    QCOMPARE(validity("Y", "5", 1, code).result, 1);
    QCOMPARE(validity("Y", "5", 1, code).address, UNTOUCHED);
}

void FarOffCodesTest::dataTypes()
{
    QFETCH(int, code);
    QCOMPARE(check("32CV", "200", code, 2, 0).result, 5);
    QCOMPARE(check("32CV", "200", code, 2, 0).address, UNTOUCHED);
    QCOMPARE(check("D", "5", code, 1, 0).result, 0);
    QCOMPARE(check("Y", "5", code, 1, 0).result, 1);
}

void FarOffCodesTest::accessCodes()
{
    QFETCH(int, code);
    for (const char* type : {"X", "Y"}) {
        QCOMPARE(check(type, "7", BIT_TAG, 1, code).result, 0);
        QCOMPARE(check(type, "7", BIT_TAG, 1, code).address, 7);
    }
    QCOMPARE(check("32CV", "200", 3, 2, code).result, 0);
}

// As for reading: sorted and joined across the gap, no block starts.
void FarOffCodesTest::mergeModes()
{
    QFETCH(int, code);
    DriverFixture runtime;
    QList<KEY_ADDRESS> list = d10AndD0();
    addrMerge(list, code);
    QCOMPARE(static_cast<int>(list.size()), 1);
    QCOMPARE(list.first().address, 0);
    QCOMPARE(list.first().count, 11);
    QCOMPARE(driver.intList, QList<int>());
}

void FarOffCodesTest::weightFlags()
{
    QFETCH(int, code);
    QCOMPARE(getRegAddressWeight(0, "D", 100, code), 524380u); // 65535 * 8 + 100
}

void FarOffCodesTest::valuesOfARecipeJob()
{
    QFETCH(int, code);
    DriverFixture runtime;
    runtime.recipe[3] = 0x1234;
    VARIABLE filled = job(1, "", 0, 0, "FFFF FFFF");
    rcpAddrToVar(variable(1, "D", 20, 1, 3), filled, code);
    QCOMPARE(int(filled.data[0]) + int(filled.data[1]), 0x12 + 0x34);
    QCOMPARE(int(filled.data[2]), 0);
    rcpAddrToVar(variable(1, "D", 20, 1, 3), filled, 0);
    QCOMPARE(int(filled.data[0]) + int(filled.data[1]), 0);
}

// Anything but 1 is a failure.
void FarOffCodesTest::ends()
{
    QFETCH(int, code);
    for (const char* type : {"Y", "D", "32CV"}) {
        DriverFixture runtime("1#1#0#3#32");
        setReadValue(1, type, 5, bytes("03"));
        setValues(1, type, 5, 2, "0700 0700");
        runtime.reports.clear();
        _write_FailOrSuc(1, type, 5, 2, code);
        QCOMPARE(readValue(1, type, 5), bytes("03000000"));
        QVERIFY(!isPending(1, type, 5));
        const bool isBit = qstrcmp(type, "Y") == 0; // reported without a mark
        QCOMPARE(runtime.reports, reportsOf(type, isBit ? QList<int>{5, 6} : QList<int>()));
    }
}

// Anything but 0 leaves the bits out.
void FarOffCodesTest::bitStarts()
{
    QFETCH(int, code);
    DriverFixture runtime;
    record(1, "D", 10).bitMonitorMask = 0xFFFF;
    record(1, "D", 10).monitorFlags = 1;
    int before = 0;
    int after = 0xFFFF;
    _wordDataChange(&before, &after, 1, "D", 10, code);
    QCOMPARE(runtime.reports, reportsOf("D", {10}));
}

void FarOffCodesTest::bitsOfAGroup()
{
    QFETCH(int, code);
    DriverFixture runtime;
    record(1, "M", 8).bitMonitorMask = 0x21;
    record(1, "M", 13).monitorFlags = 1; // looked at when it is no bit
    _OnlyOneDataTypeDataChange(1, "M", 13, code, 0xFF, 0xFE, 0);
    QCOMPARE(runtime.reports, reportsOf("M", {13})); // its own mark, bit 5
    _OnlyOneDataTypeDataChange(1, "M", 13, code, 0x20, 0x00, code);
    QCOMPARE(runtime.reports, reportsOf("M", {13, 18})); // the watched bit 5 differs
    record(1, "M", 8).bitMonitorMask = 0;
    _OnlyOneDataTypeDataChange(1, "M", 13, code, 0xFF, 0xFE, 0);
    QCOMPARE(static_cast<int>(runtime.reports.size()), 2);
}

void FarOffCodesTest::bitsSet()
{
    QFETCH(int, code);
    QCOMPARE(_setBitValue(0, 3, code), 8);
    QCOMPARE(_setBitValue(8, 3, code), 8);
    QCOMPARE(_setBitValue(8, 3, 0), 0);
}

// Only -1 counts in bits, of which a request holds eight times as many.
void FarOffCodesTest::bitIndexes()
{
    QFETCH(int, code);
    DriverFixture runtime("1#0#0#3#2");
    KEY_ADDRESS wanted = key(1, "M", 0, 5);
    wanted.bitIndex = code;
    intf_addConditionRead(wanted, CONDITION_READ_JOB);
    QCOMPARE(static_cast<int>(driver.condList.size()), 3);
    QCOMPARE(driver.condList.at(2).address, 4);
    QCOMPARE(driver.condList.at(2).count, 1);
}

QTEST_APPLESS_MAIN(FarOffCodesTest)
#include "tst_far_off_codes.moc"
