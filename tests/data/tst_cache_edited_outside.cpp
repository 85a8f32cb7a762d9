// The cache is a plain list that a runtime may change between calls and inside the
// value-change function: whatever it did, the first record of a key is the one that all
// entry points find.
#include "data/cached_record.h"
#include "data/change_notification.h"
#include "data/write_completion.h"
#include "data/written_values.h"
#include "planning/monitor_flags.h"

#include <QtTest/QTest>

#include <algorithm>

namespace
{

const int SIZES[] = {1, 64, 65, 300, 10000};

// D0, D1, ... of station 1, and nothing else.
void fillCache(int size)
{
    std::vector<unsigned char> words(2 * static_cast<size_t>(size));
    intf_getData(1, QString::fromLatin1("D"), 0, size, words.data());
}

int indexOf(int address)
{
    return getIndexOfDataArea(1, QString::fromLatin1("D"), address, driver.dataAreas);
}

// Without asking for write access.
const QList<_DATA_>& areas()
{
    return driver.dataAreas;
}

int firstRecordOf(int station, const QString& regType, int address)
{
    for (int i = 0; i < areas().size(); ++i) {
        const _DATA_& area = areas().at(i);
        if (area.station == station && area.regType == regType && area.address == address)
            return i;
    }
    return -1;
}

// Compares with a plain search: all records of a short cache, of a long one some forty from
// all over it and those at the places where edits are made.
bool findsFirstRecords()
{
    const int size = static_cast<int>(areas().size());
    std::vector<int> records = {size / 3, size / 2, size * 2 / 3, size - 1};
    for (int i = 0; i < size; i += size <= 301 ? 1 : size / 40)
        records.push_back(i);
    for (const int record : records) {
        const _DATA_ key = areas().at(record);
        const int first = firstRecordOf(key.station, key.regType, key.address);
        if (getIndexOfDataArea(key.station, key.regType, key.address, driver.dataAreas) != first)
            return false;
    }
    return areas().size() == size;
}

_DATA_ word(int address)
{
    _DATA_ area = _DATA_();
    area.station = 1;
    area.regType = QString::fromLatin1("D");
    area.address = address;
    return area;
}

void readOneWord(DriverFixture& runtime, int address, const char* reply)
{
    driver.readList.clear();
    driver.readList << job(1, "D", address, 1);
    runtime.poll();
    runtime.deal(withCrc(reply));
}

// Does something inside the first call of the value-change function.
void onFirstReport(DriverFixture& runtime, const std::function<void()>& action)
{
    runtime.onReport = [&runtime, action](const Report&) {
        if (runtime.reports.size() == 1)
            action();
    };
}

// What a runtime may do to the list. All leave at least one record.
struct Edit {
    const char* name;
    void (*edit)();
};

void changeAKeyInTheMiddle()
{
    driver.dataAreas[cachedCount() / 3].address = 50000;
}

void repeatALaterKey()
{
    driver.dataAreas[cachedCount() / 3].address = cachedCount() * 2 / 3;
}

void repeatAnEarlierKey()
{
    driver.dataAreas[cachedCount() * 2 / 3].address = cachedCount() / 3;
}

void changeStationAndType()
{
    driver.dataAreas[cachedCount() / 2].station = 9;
    driver.dataAreas[cachedCount() / 3].regType = QString::fromLatin1("SD");
}

void appendOne()
{
    driver.dataAreas.append(word(60000));
}

void putOneFirst()
{
    driver.dataAreas.prepend(word(cachedCount() - 1));
}

void takeOneOut()
{
    if (cachedCount() > 1)
        driver.dataAreas.removeAt(cachedCount() / 2);
}

void turnRound()
{
    std::reverse(driver.dataAreas.begin(), driver.dataAreas.end());
}

void exchangeTwo()
{
    std::swap(driver.dataAreas[0], driver.dataAreas[cachedCount() / 2]);
}

void exchangeTheList()
{
    QList<_DATA_> others;
    for (int i = 0; i < areas().size(); ++i)
        others.append(word(2 * i + 1));
    driver.dataAreas = others;
}

void clearAndFill()
{
    const int size = cachedCount();
    driver.dataAreas.clear();
    for (int i = 0; i < size; ++i)
        driver.dataAreas.append(word(size - i));
}

const QList<Edit>& edits()
{
    static const QList<Edit> all = {
        {"a key changed in the middle", changeAKeyInTheMiddle},
        {"a later key put earlier, too", repeatALaterKey},
        {"an earlier key put later, too", repeatAnEarlierKey},
        {"station and type changed", changeStationAndType},
        {"one appended", appendOne},
        {"one put first, its key there already", putOneFirst},
        {"one taken out", takeOneOut},
        {"turned round", turnRound},
        {"two exchanged", exchangeTwo},
        {"another list", exchangeTheList},
        {"cleared and filled", clearAndFill},
    };
    return all;
}

void addEditRows()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("edit");
    for (const int size : SIZES) {
        for (int edit = 0; edit < edits().size(); ++edit)
            QTest::newRow(
                qPrintable(QString("%1 records, %2").arg(size).arg(edits().at(edit).name)))
                << size << edit;
    }
}

void addSizeRows()
{
    QTest::addColumn<int>("size");
    for (const int size : SIZES)
        QTest::newRow(qPrintable(QString("%1 records").arg(size))) << size;
}

} // namespace

class CacheEditedOutsideTest : public QObject
{
    Q_OBJECT

private slots:
    void aKeyMovedAwayInTheMiddleIsFound();
    void aKeyPutBeforeItsFirstRecordIsFound();
    void aKeyWrittenTwiceAmongAHundredIsFoundFirst();

    void editsBetweenCallsAreSeen_data() { addEditRows(); }
    void editsBetweenCallsAreSeen();
    void editsInsideTheFunctionAreSeen_data() { addEditRows(); }
    void editsInsideTheFunctionAreSeen();
    void editsBehindANestedEntryAreSeen_data() { addEditRows(); }
    void editsBehindANestedEntryAreSeen();
    void editsAreSeenByFunctionsCalledByHand_data() { addEditRows(); }
    void editsAreSeenByFunctionsCalledByHand();
    void editsBehindAReportAskedForByHandAreSeen_data() { addEditRows(); }
    void editsBehindAReportAskedForByHandAreSeen();

    void valuesEditedStayWhereTheyAre_data() { addSizeRows(); }
    void valuesEditedStayWhereTheyAre();
    void initialisingInsideStartsAnew_data() { addSizeRows(); }
    void initialisingInsideStartsAnew();
    void clearingInsideStartsAnew_data() { addSizeRows(); }
    void clearingInsideStartsAnew();
    void aCopyThatTheRuntimeKeepsStaysAsItWas_data() { addSizeRows(); }
    void aCopyThatTheRuntimeKeepsStaysAsItWas();
    void aPollMovesNoRecord();
    void recordsCreatedByHandMoveOthersRarely();
    void editsBeforeTheFunctionThrewAreSeen_data() { addSizeRows(); }
    void editsBeforeTheFunctionThrewAreSeen();
};

void CacheEditedOutsideTest::aKeyMovedAwayInTheMiddleIsFound()
{
    DriverFixture runtime;
    fillCache(300);
    driver.dataAreas[100].address = 5000;
    readOneWord(runtime, 5000, "01 03 02 1234");
    QCOMPARE(cachedCount(), 300);
    QCOMPARE(indexOf(5000), 100);
    QCOMPARE(readValue(1, "D", 5000), bytes("34 12 00 00"));
}

void CacheEditedOutsideTest::aKeyPutBeforeItsFirstRecordIsFound()
{
    DriverFixture runtime;
    fillCache(300);
    driver.dataAreas[100].address = 200;
    QCOMPARE(indexOf(200), 100);
    readOneWord(runtime, 200, "01 03 02 1234");
    QCOMPARE(int(areas().at(100).value[0]), 0x34);
    QCOMPARE(int(areas().at(200).value[0]), 0);
}

void CacheEditedOutsideTest::aKeyWrittenTwiceAmongAHundredIsFoundFirst()
{
    DriverFixture runtime;
    fillCache(100);
    driver.dataAreas[5].address = 90;
    setValues(1, "D", 90, 1, "21 43");
    QCOMPARE(int(areas().at(5).writePending), 1);
    QCOMPARE(int(areas().at(90).writePending), 0);
}

void CacheEditedOutsideTest::editsBetweenCallsAreSeen()
{
    QFETCH(int, size);
    QFETCH(int, edit);
    DriverFixture runtime;
    fillCache(size);
    edits().at(edit).edit();
    QVERIFY(findsFirstRecords());
    edits().at(edit).edit();
    QVERIFY(findsFirstRecords());
}

// A write of D0 and D1 reports D0 if it is watched; the edit is made in there, and D1
// must be stored where a search from the front finds it.
void CacheEditedOutsideTest::editsInsideTheFunctionAreSeen()
{
    QFETCH(int, size);
    QFETCH(int, edit);
    DriverFixture runtime;
    fillCache(size);
    _setDataAreaMonitorFlag(1, QString::fromLatin1("D"), 0, 1);
    onFirstReport(runtime, [&] { edits().at(edit).edit(); });
    setValues(1, "D", 0, 2, "34 12 78 56");
    QCOMPARE(runtime.reports.mid(0, 1), reportsOf("D", {0}));
    QVERIFY(findsFirstRecords());
    const int first = firstRecordOf(1, QString::fromLatin1("D"), 0);
    const int second = firstRecordOf(1, QString::fromLatin1("D"), 1);
    QCOMPARE(int(areas().at(first).writeValue[0]), 0x34);
    QCOMPARE(int(areas().at(second).writeValue[0]), 0x78);
}

// Inside the function the runtime first calls the driver, which takes the list up and
// lets it go again, and then edits.
void CacheEditedOutsideTest::editsBehindANestedEntryAreSeen()
{
    QFETCH(int, size);
    QFETCH(int, edit);
    DriverFixture runtime;
    fillCache(size);
    _setDataAreaMonitorFlag(1, QString::fromLatin1("D"), 0, 1);
    bool nestedFinds = false;
    onFirstReport(runtime, [&] {
        DriverFixture::data(1, "D", 70000, 1, 2);
        edits().at(edit).edit();
        nestedFinds = findsFirstRecords();
        edits().at(edit).edit();
    });
    readOneWord(runtime, 0, "01 03 02 1234");
    QVERIFY(nestedFinds);
    QVERIFY(findsFirstRecords());
    QCOMPARE(readValue(1, "D", 0), bytes("34 12 00 00"));
}

void CacheEditedOutsideTest::editsAreSeenByFunctionsCalledByHand()
{
    QFETCH(int, size);
    QFETCH(int, edit);
    DriverFixture runtime;
    const QString type = QString::fromLatin1("D");
    int zero = 0;
    int one = 1;
    unsigned char bits[] = {0, 1};
    unsigned char newWord[] = {0x78, 0x56};
    for (int function = 0; function < 6; ++function) {
        runtime.initialise("1#0#0#3#32");
        fillCache(size);
        edits().at(edit).edit();
        const int known = cachedCount();
        const int address = areas().at(known / 3).address;
        const int station = areas().at(known / 3).station;
        const QString name = areas().at(known / 3).regType;
        const int first = firstRecordOf(station, name, address);
        driver.dataAreas[first].monitorFlags = 1;
        driver.dataAreas[first].bitMonitorMask = 1;
        runtime.reports.clear();
        if (function == 0)
            _wordDataChange(&zero, &one, station, name, address, 1);
        else if (function == 1)
            _OnlyOneDataTypeDataChange(station, name, address, 0, 0, 0, 0);
        else if (function == 2)
            _byteDataChange(&bits[1], &bits[0], station, name, address);
        else if (function == 3)
            write_saveDataToArea(station, name, address, 1, newWord);
        else if (function == 4)
            _write_FailOrSuc(station, name, address, 1, 1);
        else
            _setDataAreaMonitorFlag(station, name, address, 1);
        QCOMPARE(cachedCount(), known);
        QCOMPARE(static_cast<int>(runtime.reports.size()), function == 5 ? 0 : 1);
        if (function == 3)
            QCOMPARE(int(areas().at(first).writeValue[0]), 0x78);
        QVERIFY(findsFirstRecords());
    }
}

// The value-change function is called last, when the driver needs the list no more.
void CacheEditedOutsideTest::editsBehindAReportAskedForByHandAreSeen()
{
    QFETCH(int, size);
    QFETCH(int, edit);
    DriverFixture runtime;
    fillCache(size);
    _setDataAreaMonitorFlag(1, QString::fromLatin1("D"), 0, 1);
    onFirstReport(runtime, [&] { edits().at(edit).edit(); });
    _OnlyOneDataTypeDataChange(1, QString::fromLatin1("D"), 0, 0, 0, 0, 0);
    QCOMPARE(static_cast<int>(runtime.reports.size()), 1);
    QVERIFY(findsFirstRecords());
}

void CacheEditedOutsideTest::valuesEditedStayWhereTheyAre()
{
    QFETCH(int, size);
    DriverFixture runtime;
    fillCache(size);
    driver.dataAreas[size - 1].value[0] = 0x21;
    QCOMPARE(DriverFixture::data(1, "D", size - 1, 1, 2), bytes("21 00"));
    runtime.onReport = [&](const Report&) { driver.dataAreas[size - 1].value[1] = 0x43; };
    setValues(1, "M", 0, 1, "01");
    QCOMPARE(DriverFixture::data(1, "D", size - 1, 1, 2), bytes("21 43"));
    QCOMPARE(indexOf(size - 1), size - 1);
    QCOMPARE(cachedCount(), size + 1);
}

void CacheEditedOutsideTest::initialisingInsideStartsAnew()
{
    QFETCH(int, size);
    DriverFixture runtime;
    fillCache(size);
    onFirstReport(runtime, [&] { runtime.initialise("1#0#0#3#32"); });
    setValues(1, "M", 0, 2, "01 01");
    QCOMPARE(cachedCount(), 2); // M0, stored after the report, and M1
    QCOMPARE(indexOf(size - 1), 2);
    QVERIFY(findsFirstRecords());
}

void CacheEditedOutsideTest::clearingInsideStartsAnew()
{
    QFETCH(int, size);
    DriverFixture runtime;
    fillCache(size);
    driver.readList << job(1, "M", 0, 8);
    onFirstReport(runtime, [&] { driver.dataAreas.clear(); });
    runtime.poll();
    QCOMPARE(runtime.deal(withCrc("01 01 01 01")), 1);
    QCOMPARE(cachedCount(), 8);
    QCOMPARE(indexOf(0), 8);
    QVERIFY(findsFirstRecords());
}

void CacheEditedOutsideTest::aCopyThatTheRuntimeKeepsStaysAsItWas()
{
    QFETCH(int, size);
    DriverFixture runtime;
    fillCache(size);
    const QList<_DATA_> kept = driver.dataAreas;
    readOneWord(runtime, size - 1, "01 03 02 1234");
    QCOMPARE(int(kept.at(size - 1).value[0]), 0);
    QCOMPARE(int(areas().at(size - 1).value[0]), 0x34);
    driver.dataAreas[0].address = 50000;
    QCOMPARE(indexOf(50000), 0);
    driver.dataAreas = kept;
    QCOMPARE(indexOf(0), 0);
    QCOMPARE(DriverFixture::data(1, "D", size - 1, 1, 2), bytes("00 00"));
}

// References last from call to call as long as nobody asks for write access, so a poll
// costs the same for any size.
void CacheEditedOutsideTest::aPollMovesNoRecord()
{
    DriverFixture runtime;
    fillCache(10000);
    const _DATA_* const before = &areas().at(5000);
    for (int value = 0; value < 3; ++value) {
        readOneWord(runtime, 5000, value == 1 ? "01 03 02 1234" : "01 03 02 4321");
        setValues(1, "D", 5000, 1, "01 00");
        DriverFixture::data(1, "D", 5000, 1, 2);
    }
    QCOMPARE(&areas().at(5000), before);
}

// A list that grows moves its records now and then, one that is copied each time.
void CacheEditedOutsideTest::recordsCreatedByHandMoveOthersRarely()
{
    const DriverFixture runtime;
    fillCache(64);
    int moves = 0;
    for (int address = 64; address < 1064; ++address) {
        const _DATA_* const before = &areas().at(0);
        QCOMPARE(indexOf(address), address);
        moves += &areas().at(0) != before;
    }
    QVERIFY2(moves <= 10, qPrintable(QString::number(moves)));
}

// The driver throws nothing, but what the runtime's function throws passes through it.
void CacheEditedOutsideTest::editsBeforeTheFunctionThrewAreSeen()
{
    QFETCH(int, size);
    DriverFixture runtime;
    fillCache(size);
    runtime.onReport = [&](const Report&) {
        driver.dataAreas[size / 2].address = 50000;
        throw 1;
    };
    bool isThrown = false;
    try {
        setValues(1, "M", 0, 1, "01");
    } catch (int) {
        isThrown = true;
    }
    QVERIFY(isThrown);
    QCOMPARE(indexOf(50000), size / 2);
    QVERIFY(findsFirstRecords());
}

QTEST_APPLESS_MAIN(CacheEditedOutsideTest)
#include "tst_cache_edited_outside.moc"
