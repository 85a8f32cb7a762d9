// A name counts only when it equals a register type's to the last character, in every
// look-up. What merely looks like one is another, unknown type.

#include "data/change_notification.h"
#include "data/data_areas.h"
#include "data/write_completion.h"
#include "data/written_values.h"
#include "driver/job_queue.h"
#include "modbus/read_request.h"
#include "modbus/write_request.h"
#include "planning/address_merge.h"
#include "planning/monitor_flags.h"
#include "registers/address_weight.h"
#include "stories/disguised_names.h"
#include "stories/slave.h"

#include <QtTest/QTest>

namespace
{

const int BIT_TAG = -1;
const int WORD_TAG = 2;
// Lists that are searched record by record, and such that are not.
const int LIST_SIZES[] = {0, 300};

KEY_ADDRESS keyOf(const QString& name, int address)
{
    KEY_ADDRESS range = key(1, "", address, 1);
    range.regType = name;
    return range;
}

VARIABLE jobOf(const QString& name, int address)
{
    VARIABLE read = job(1, "", address, 1);
    read.regType = name;
    return read;
}

QList<int> counts(const QList<KEY_ADDRESS>& blocks)
{
    QList<int> result;
    for (const KEY_ADDRESS& block : blocks)
        result << block.count;
    return result;
}

} // namespace

class ExactNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void inTheCatalogue_data() { disguises(); }
    void inTheCatalogue();
    void inRequests_data() { disguises(); }
    void inRequests();
    void inTheCache_data() { disguises(); }
    void inTheCache();
    void inWhatIsStored_data() { disguises(); }
    void inWhatIsStored();
    void inWhatIsReported_data() { disguises(); }
    void inWhatIsReported();
    void inQueues_data() { disguises(); }
    void inQueues();
    void inMerges_data() { disguises(); }
    void inMerges();
    void inRecipes_data() { disguises(); }
    void inRecipes();

private:
    static void disguises()
    {
        QTest::addColumn<int>("disguise");
        for (int disguise = 0; disguise < disguiseCount(); ++disguise)
            QTest::newRow(disguiseName(disguise).constData()) << disguise;
    }
};

void ExactNamesTest::inTheCatalogue()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        const QString other = disguised(name, disguise);
        QVERIFY(other != name);
        QList<QString> description;
        QCOMPARE(intf_getRegDiscription(other, description), 0);
        QVERIFY(description.isEmpty());
        int address = 77;
        for (const int isWord : {0, 1})
            QCOMPARE(intf_checkAddrValidity(other, "7", &address, 1, isWord), 3);
        for (const int dataType : {BIT_TAG, WORD_TAG})
            QCOMPARE(intf_checkAddr(other, "7", &address, dataType, 1, 1), 3);
        QCOMPARE(address, 77);
        QVector<QString> texts;
        QVector<int> addresses;
        QCOMPARE(intf_multiCopy(other, 7, 2, 1, texts, addresses), 0);
        QVERIFY(texts.isEmpty() && addresses.isEmpty());
        QCOMPARE(getRegAddressWeight(1, other, 7, 0), 327682u); // 65535 * 5 + 7
    }
}

void ExactNamesTest::inRequests()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        DriverFixture runtime;
        VARIABLE read = jobOf(disguised(name, disguise), 9);
        getWriteFrame(read);
        QVERIFY(driver.frameList.isEmpty());
        getReadFrame(read);
        QCOMPARE(runtime.poll(), withCrc("01 03 0009 0001")); // a register at base 0
    }
}

void ExactNamesTest::inTheCache()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        for (const int size : LIST_SIZES) {
            DriverFixture runtime;
            for (int i = 0; i < size; ++i)
                getIndexOfDataArea(2, "D", i, driver.dataAreas);
            const auto find = [](const QString& sought) {
                return getIndexOfDataArea(1, sought, 9, driver.dataAreas);
            };
            QCOMPARE(find(disguised(name, disguise)), size);
            QCOMPARE(driver.dataAreas.at(size).regType, disguised(name, disguise));
            driver.dataAreas[size].value[0] = 1;
            QCOMPARE(DriverFixture::data(1, name.toLatin1(), 9, 2, 4).at(0), '\0');
            QCOMPARE(find(name), size + 1);
            QCOMPARE(find(disguised(name, disguise)), size);
        }
    }
}

void ExactNamesTest::inWhatIsStored()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        const QString other = disguised(name, disguise);
        DriverFixture runtime("1#0#0#1#32");
        unsigned char value[4] = {1, 2, 3, 4};
        _setDataAreaMonitorFlag(1, other, 9, 2);
        write_saveDataToArea(1, other, 9, 2, value);
        intf_setData(1, other, 9, 2, value, WRITE_JOB);
        intf_getData(1, other, 9, 2, value);
        _write_FailOrSuc(1, other, 9, 2, 1);
        _write_FailOrSuc(1, other, 9, 2, 0);
        QVERIFY(driver.writeList.isEmpty());
        QCOMPARE(int(value[0]), 1); // not overwritten
        driver.readList << jobOf(other, 9);
        runtime.poll();
        QCOMPARE(runtime.deal(withCrc("01 03 02 1234")), 1);
        runtime.poll();
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.lastError(), "0,1,9," + other);
        QVERIFY(driver.dataAreas.isEmpty());
        QCOMPARE(runtime.reports, QList<Report>());
    }
}

// Marks go by the name, known or not.
void ExactNamesTest::inWhatIsReported()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        const QString other = disguised(name, disguise);
        DriverFixture runtime;
        driver.dataAreas[getIndexOfDataArea(1, other, 8, driver.dataAreas)].monitorFlags = 1;
        int before = 0;
        int after = 1;
        _wordDataChange(&before, &after, 1, name, 8, 0);
        _OnlyOneDataTypeDataChange(1, name, 8, 0, 0, 0, 0);
        QCOMPARE(runtime.reports, QList<Report>());
        _wordDataChange(&before, &after, 1, other, 8, 0);
        _OnlyOneDataTypeDataChange(1, other, 8, 0, 0, 0, 0);
        const Report report = {1, 1, other, 8};
        QCOMPARE(runtime.reports, QList<Report>() << report << report);
    }
}

void ExactNamesTest::inQueues()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        DriverFixture runtime;
        const auto ask = [](const QString& wanted, int address) {
            KEY_ADDRESS range = keyOf(wanted, address);
            intf_addConditionRead(range, CONDITION_READ_JOB);
            return static_cast<int>(driver.condList.size());
        };
        QCOMPARE(ask("D", 1), 1); // the head, which is compared with nothing
        QCOMPARE(ask(name, 9), 2);
        QCOMPARE(ask(disguised(name, disguise), 9), 3);
        QCOMPARE(ask(name, 9), 3);
        QCOMPARE(ask(disguised(name, disguise), 9), 3);
        VARIABLE write = jobOf(name, 9);
        for (int expected = 1; expected <= 4; ++expected) {
            write.regType = expected % 2 == 0 ? disguised(name, disguise) : name;
            addVarToList(driver.writeList, write);
            QCOMPARE(static_cast<int>(driver.writeList.size()), std::min(expected, 3));
        }

        driver.condList.removeFirst();
        driver.currentKind = CONDITION_READ_JOB;
        dealListWhenFinish(); // of the type, while the disguised read was asked for last
        QCOMPARE(runtime.reports, QList<Report>());
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>() << CONDITION_DONE);
    }
}

// A type's name and a disguised one stay apart; two like ones are joined, by the rules
// for words, across the split of every type.
void ExactNamesTest::inMerges()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        for (const int mode : {READ_MERGE, RECIPE_MERGE}) {
            DriverFixture runtime;
            QList<KEY_ADDRESS> apart = {keyOf(name, 9), keyOf(disguised(name, disguise), 10)};
            addrMerge(apart, mode);
            QCOMPARE(counts(apart), QList<int>({1, 1}));
            for (const int first : {9, 255, 2047}) {
                QList<KEY_ADDRESS> alike = {keyOf(disguised(name, disguise), first),
                                            keyOf(disguised(name, disguise), first + 1)};
                addrMerge(alike, mode);
                QCOMPARE(counts(alike), QList<int>{2});
            }
        }
    }
}

void ExactNamesTest::inRecipes()
{
    QFETCH(int, disguise);
    for (const QString& name : REG_LIST) {
        const QString other = disguised(name, disguise);
        DriverFixture runtime;
        QVector<_RCP_VAR_PRO> recipe = {variable(1, name, 9, 1, 0), variable(1, other, 10, 1, 1),
                                        variable(1, other, 11, 1, 2)};
        QCOMPARE(intf_setRcpAddress(recipe), 3);
        QCOMPARE(static_cast<int>(driver.rcpVars.size()), 2);
        QCOMPARE(driver.rcpVars.at(0).regType, other); // before all types
        QCOMPARE(driver.rcpVars.at(0).count, 2);
        QCOMPARE(driver.rcpVars.at(1).regType, name);
        QCOMPARE(driver.rcpVars.at(1).count, 1);
        QCOMPARE(driver.intList, QList<int>({0, 2}));
    }
}

QTEST_APPLESS_MAIN(ExactNamesTest)
#include "tst_exact_names.moc"
