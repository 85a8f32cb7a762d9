#include "data/data_area_index.h"

#include <QtCore/QVector>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

namespace
{

bool memoryIsOut = false;

} // namespace

// The index takes its memory here; lists and strings of Qt take theirs elsewhere.
void* operator new(std::size_t size)
{
    void* const memory = memoryIsOut ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

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

// D0, D3, D6, ...
QList<_DATA_> words(int count)
{
    QList<_DATA_> list;
    for (int i = 0; i < count; ++i)
        list << area(1, "D", 3 * i);
    return list;
}

// The index and the list that it belongs to, as the driver uses them.
struct Indexed {
    QList<_DATA_> list;
    DataAreaIndex index;

    explicit Indexed(const QList<_DATA_>& records) : list(records) { index.takeUp(list); }

    int find(const char* regType, int address)
    {
        return index.find(list, 1, QString(regType), address);
    }

    int group(const char* regType, int address)
    {
        return index.findGroup(list, 1, QString(regType), address);
    }

    QVector<int> recordsOf(int group)
    {
        QVector<int> records;
        for (int place = 0; place < RecordTable::GROUP_SIZE; ++place)
            records << index.recordsOf(group)[place];
        return records;
    }

    void findAll()
    {
        for (int i = 0; i < list.size(); ++i)
            index.find(list, list.at(i).station, list.at(i).regType, list.at(i).address);
    }

    bool findsWhatASearchFinds()
    {
        for (int i = 0; i < list.size(); ++i) {
            const _DATA_ key = list.at(i);
            if (index.find(list, key.station, key.regType, key.address)
                != DataAreaIndex::findInList(list, key.station, key.regType, key.address))
                return false;
        }
        return find("D", -3) == -1;
    }
};

typedef void (*Change)(QList<_DATA_>& list);

void clear(QList<_DATA_>& list)
{
    list.clear();
}

void takeTheFirstOut(QList<_DATA_>& list)
{
    list.removeFirst();
}

void takeTheLastOut(QList<_DATA_>& list)
{
    list.removeLast();
}

void takeTheMiddleOut(QList<_DATA_>& list)
{
    list.removeAt(list.size() / 2);
}

void putOneFirst(QList<_DATA_>& list)
{
    list.prepend(area(1, "M", 8));
}

void append(QList<_DATA_>& list)
{
    list << area(1, "M", 8);
}

void turnRound(QList<_DATA_>& list)
{
    std::reverse(list.begin(), list.end());
}

void exchangeTwoInTheMiddle(QList<_DATA_>& list)
{
    std::swap(list[list.size() / 2], list[list.size() / 2 - 1]);
}

void changeAKeyInTheMiddle(QList<_DATA_>& list)
{
    list[list.size() / 2].address = 100001;
}

void repeatALaterKey(QList<_DATA_>& list)
{
    list[list.size() / 4].address = list.at(list.size() / 2).address;
}

void changeAllStations(QList<_DATA_>& list)
{
    for (int i = 0; i < list.size(); ++i)
        list[i].station = 2;
}

void takeOthers(QList<_DATA_>& list)
{
    list = words(2 * static_cast<int>(list.size())).mid(static_cast<int>(list.size()));
}

} // namespace

Q_DECLARE_METATYPE(Change)

class DataAreaIndexTest : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingInAnEmptyList();
    void findsEveryRecord();
    void everyPartOfTheKeyCounts_data();
    void everyPartOfTheKeyCounts();
    void findsTheFirstOfEqualRecords();
    void indexesWhatWasChangedWhileLetGo_data();
    void indexesWhatWasChangedWhileLetGo();
    void keepsItsIndexWhenNobodyWrote();
    void aCopyOfTheOldListPutBackIsTheOldList();
    void theDriversOwnWritingCopiesNothing();
    void forgetsTheListAfterAReset();
    void findsRecordsThatTheDriverAppends();
    void knowsEveryRecordAfterMemoryRanOut_data();
    void knowsEveryRecordAfterMemoryRanOut();
    void aGroupHoldsTheRecordsOfEightAddresses();
    void thereIsNoGroupBehindTheLast();
    void aGroupHoldsTheFirstOfEachKey();
    void groupsAtTheEdgesOfInt();
};

void DataAreaIndexTest::findsNothingInAnEmptyList()
{
    Indexed empty((QList<_DATA_>()));
    QCOMPARE(empty.find("D", 0), -1);
}

void DataAreaIndexTest::findsEveryRecord()
{
    Indexed indexed(words(1000)); // D0, D3, ... D2997
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(indexed.find("D", 3 * i), i);
    for (int i = 999; i >= 0; --i)
        QCOMPARE(indexed.find("D", 3 * i), i);
    QCOMPARE(indexed.find("D", 1), -1);
    QCOMPARE(indexed.find("D", 3000), -1);
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
    QList<_DATA_> list;
    list << area(1, "D", 5) << area(2, "D", 5) << area(1, "SD", 5) << area(1, "D", 6)
         << area(1, "", 5) << area(1, "aXbXcXe", 5) << area(1, "aXcXcXe", 5);
    Indexed indexed(list);
    QCOMPARE(indexed.index.find(indexed.list, station, regType, address), expected);
}

void DataAreaIndexTest::findsTheFirstOfEqualRecords()
{
    QList<_DATA_> list;
    list << area(1, "D", 5) << area(1, "D", 6) << area(1, "D", 5) << area(1, "D", 6)
         << area(1, "D", 7);
    Indexed indexed(list);
    QCOMPARE(indexed.find("D", 6), 1);
    QCOMPARE(indexed.find("D", 5), 0);
    QCOMPARE(indexed.find("D", 6), 1);
    QCOMPARE(indexed.find("D", 7), 4);
}

void DataAreaIndexTest::indexesWhatWasChangedWhileLetGo_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<int>("size");
    const struct {
        const char* name;
        Change change;
    } changes[] = {
        {"cleared", clear},
        {"the first gone", takeTheFirstOut},
        {"the last gone", takeTheLastOut},
        {"one in the middle gone", takeTheMiddleOut},
        {"another first", putOneFirst},
        {"one more", append},
        {"the other way round", turnRound},
        {"two exchanged in the middle", exchangeTwoInTheMiddle},
        {"a key changed in the middle", changeAKeyInTheMiddle},
        {"a later key put earlier, too", repeatALaterKey},
        {"another station", changeAllStations},
        {"other records, as many", takeOthers},
    };
    const int sizes[] = {1, 2, 64, 65, 300, 1000};
    for (const auto& change : changes) {
        for (const int size : sizes) {
            if (size > 1 || change.change != exchangeTwoInTheMiddle)
                QTest::newRow(qPrintable(QString("%1, %2 records").arg(change.name).arg(size)))
                    << change.change << size;
        }
    }
}

void DataAreaIndexTest::indexesWhatWasChangedWhileLetGo()
{
    QFETCH(Change, change);
    QFETCH(int, size);
    Indexed indexed(words(size));
    indexed.findAll();
    indexed.index.letGo(indexed.list);
    change(indexed.list);
    indexed.index.takeUp(indexed.list);
    QVERIFY(indexed.findsWhatASearchFinds());
    QVERIFY(indexed.findsWhatASearchFinds());
}

// The group is known without a search, so nothing was indexed anew.
void DataAreaIndexTest::keepsItsIndexWhenNobodyWrote()
{
    Indexed indexed(words(1000));
    indexed.findAll();
    indexed.index.letGo(indexed.list);
    QCOMPARE(indexed.list.at(7).address, 21);
    indexed.index.takeUp(indexed.list);
    QVERIFY(indexed.group("D", 21) >= 0);
}

void DataAreaIndexTest::aCopyOfTheOldListPutBackIsTheOldList()
{
    Indexed indexed(words(100));
    indexed.findAll();
    const QList<_DATA_> kept = indexed.list;
    indexed.index.letGo(indexed.list);
    indexed.list[50].address = 1;
    indexed.index.takeUp(indexed.list);
    QCOMPARE(indexed.find("D", 1), 50);
    indexed.index.letGo(indexed.list);
    indexed.list = kept;
    indexed.index.takeUp(indexed.list);
    QCOMPARE(indexed.find("D", 1), -1);
    QCOMPARE(indexed.find("D", 150), 50);
}

void DataAreaIndexTest::theDriversOwnWritingCopiesNothing()
{
    Indexed indexed(words(100));
    const _DATA_* const before = &indexed.list.at(50);
    indexed.index.letGo(indexed.list);
    QVERIFY(!indexed.index.isInHand());
    indexed.index.takeUp(indexed.list);
    QVERIFY(indexed.index.isInHand());
    QCOMPARE(const_cast<const _DATA_*>(&indexed.list[50]), before);
}

void DataAreaIndexTest::forgetsTheListAfterAReset()
{
    Indexed indexed(words(20));
    QCOMPARE(indexed.find("D", 57), 19);
    indexed.index.letGo(indexed.list);
    indexed.list.clear();
    indexed.index.reset();
    indexed.index.takeUp(indexed.list);
    QCOMPARE(indexed.find("D", 57), -1);
    indexed.list << area(1, "D", 57);
    QCOMPARE(indexed.find("D", 57), 0);
}

void DataAreaIndexTest::findsRecordsThatTheDriverAppends()
{
    Indexed indexed((QList<_DATA_>()));
    for (int i = 0; i < 200; ++i) {
        QCOMPARE(indexed.find("D", i), -1);
        indexed.list << area(1, "D", i);
        QCOMPARE(indexed.find("D", i), i);
        QCOMPARE(indexed.find("D", i / 2), i / 2);
    }
}

void DataAreaIndexTest::knowsEveryRecordAfterMemoryRanOut_data()
{
    QTest::addColumn<int>("known");
    // Of D0, D3, ... the 43rd, D129, opens group 16, and the 139th, D417, group 52.
    QTest::newRow("none indexed") << 0;
    QTest::newRow("the list of groups is full") << 43;
    QTest::newRow("the table is full") << 139;
}

// Whoever asks for too much may be told by an exception, and go on.
void DataAreaIndexTest::knowsEveryRecordAfterMemoryRanOut()
{
    QFETCH(int, known);
    Indexed indexed(words(known));
    indexed.findAll();
    const QString type = QString::fromLatin1("D");
    indexed.list << area(1, "D", 3 * known);
    bool isThrown = false;
    memoryIsOut = true;
    try {
        indexed.index.find(indexed.list, 1, type, 3 * known);
    } catch (const std::bad_alloc&) {
        isThrown = true;
    }
    memoryIsOut = false;
    QVERIFY(isThrown);
    QVERIFY(indexed.findsWhatASearchFinds());
}

// D0 to D7 are a group, D8 to D15 the next: of D0, D3, ... six are there.
void DataAreaIndexTest::aGroupHoldsTheRecordsOfEightAddresses()
{
    Indexed indexed(words(20));
    QCOMPARE(indexed.find("D", 15), 5);
    const int first = indexed.group("D", 5);
    QCOMPARE(indexed.recordsOf(first), QVector<int>({0, -1, -1, 1, -1, -1, 2, -1}));
    QCOMPARE(indexed.group("D", 0), first);
    QCOMPARE(indexed.group("D", 7), first);
    const int second = indexed.group("D", 8);
    QCOMPARE(indexed.recordsOf(second), QVector<int>({-1, 3, -1, -1, 4, -1, -1, 5}));
    QCOMPARE(indexed.group("D", 7), first);
    QCOMPARE(indexed.group("D", 8), second);
}

void DataAreaIndexTest::thereIsNoGroupBehindTheLast()
{
    Indexed indexed(words(3)); // D0, D3, D6
    QCOMPARE(indexed.find("D", 6), 2);
    const int only = indexed.group("D", 7);
    QCOMPARE(indexed.group("D", 8), -1);
    QCOMPARE(indexed.group("D", 16), -1);
    QCOMPARE(indexed.group("D", 7), only);
    QCOMPARE(indexed.group("SD", 8), -1);
    QCOMPARE(indexed.group("SD", 7), -1);
    indexed.list << area(1, "SD", 8) << area(1, "D", 12);
    QCOMPARE(indexed.find("D", 12), 4);
    QCOMPARE(indexed.group("D", 7), only);
    QCOMPARE(indexed.recordsOf(indexed.group("D", 8)),
             QVector<int>({-1, -1, -1, -1, 4, -1, -1, -1}));
    QCOMPARE(indexed.recordsOf(indexed.group("SD", 15)),
             QVector<int>({3, -1, -1, -1, -1, -1, -1, -1}));
}

// D5 of station 1 is there twice, and D6 of station 2 is of another group.
void DataAreaIndexTest::aGroupHoldsTheFirstOfEachKey()
{
    QList<_DATA_> list;
    list << area(1, "D", 5) << area(2, "D", 6) << area(1, "D", 5) << area(1, "SD", 7);
    Indexed indexed(list);
    QCOMPARE(indexed.find("D", 5), 0);
    QCOMPARE(indexed.recordsOf(indexed.group("D", 0)),
             QVector<int>({-1, -1, -1, -1, -1, 0, -1, -1}));
}

// The addresses below 0 come last before 0, and the highest is next to the lowest.
void DataAreaIndexTest::groupsAtTheEdgesOfInt()
{
    const int highest = std::numeric_limits<int>::max();
    const int lowest = std::numeric_limits<int>::min();
    QList<_DATA_> list;
    list << area(1, "D", -1) << area(1, "D", 0) << area(1, "D", highest) << area(1, "D", lowest);
    Indexed indexed(list);
    QCOMPARE(indexed.find("D", lowest), 3);
    QCOMPARE(indexed.find("D", highest), 2);
    QCOMPARE(indexed.find("D", -1), 0);
    QCOMPARE(indexed.group("D", -8), indexed.group("D", -1));
    QCOMPARE(indexed.recordsOf(indexed.group("D", 0)),
             QVector<int>({1, -1, -1, -1, -1, -1, -1, -1}));
    QCOMPARE(indexed.group("D", highest - 7), indexed.group("D", highest));
    QCOMPARE(indexed.recordsOf(indexed.group("D", lowest)),
             QVector<int>({3, -1, -1, -1, -1, -1, -1, -1}));
}

QTEST_APPLESS_MAIN(DataAreaIndexTest)
#include "tst_data_area_index.moc"
