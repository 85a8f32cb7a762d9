#include "panel/watch/watch_list.h"
#include "support/driver_fixture.h"
#include "support/growth.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

#include <climits>
#include <memory>

using namespace kx;

class WatchListTest : public QObject
{
    Q_OBJECT

private slots:
    void addressesAreListedOnceInOrder();
    void everyValueOfATagHasItsName();
    void everyNameOfAnAddressIsListed();
    void anAddressTypedAndNamedIsListedOnce();
    void allNamesOfAnAddressChangeTogether();
    void aFormatMakesAnotherValue();
    void anAddressInSeveralFormatsIsShared();
    void aValueOfSeveralRegistersIsOneEntry();
    void firstReadMakesValuesKnown();
    void countersCoverHalfTheRegisters();
    void changeOfAKnownValue();
    void changeBeforeTheFirstRead();
    void reportWithoutAChangeIsNone();
    void aBitDoesNotChangeWithTheOthersOfItsWord();
    void changeOfAnAddressNotWatchedIsNone();
    void failureAndRecovery();
    void aSilentStationsEntriesAreAllUnanswered();
    void whoIsBackHasTheValueOfNow();
    void readsInAnyOrderOfTheListAreToldInIts();
    void readsBesideTheTypeCoverWhatIsInIt_data();
    void readsBesideTheTypeCoverWhatIsInIt();
    void valuesOfKeptAddressesAreKept();
    void theLongestNameIsKnown();
    void sixteenThousandAddressesCostFourTimesFourThousand();
    void eightThousandNamesOfAnAddressCostFourTimesTwoThousand();
    void aReadAndAChangeCostNoMoreInALongList();

private:
    static WatchList::ValueSource always(qint64 value)
    {
        return [value](const WatchEntry&) { return QList<qint64>{value}; };
    }
    static Tag formattedTag(const char* address, const char* name = "");
    static QStringList namesOf(const WatchList& list);
    static QList<Tag> manyTags(int addresses);
    static std::clock_t costOf(int addresses);
    static std::clock_t costOfNames(int names);
    static std::clock_t costOfEvents(int addresses);
    static QString d() { return QString::fromLatin1("D"); }
};

void WatchListTest::addressesAreListedOnceInOrder()
{
    const WatchList list({tagOf("D100:2"), tagOf("X7:2"), tagOf("D101"), tagOf("D101@2")});
    QStringList listed;
    for (const WatchEntry& entry : list.entries())
        listed << QString::fromLatin1("%1@%2")
                      .arg(addressText(entry.type, entry.address))
                      .arg(entry.station);
    QCOMPARE(listed.join(QLatin1Char(' ')), QString::fromLatin1("D100@1 D101@1 X7@1 X10@1 D101@2"));
    QCOMPARE(list.entries().first().state, WatchState::NeverRead);
    QVERIFY(!list.allAnswered());
}

/// "D100 Pump speed", in the list's order.
QStringList WatchListTest::namesOf(const WatchList& list)
{
    QStringList names;
    for (const WatchEntry& entry : list.entries())
        names << addressText(entry.type, entry.address) + QLatin1Char(' ') + entry.name;
    return names;
}

void WatchListTest::everyValueOfATagHasItsName()
{
    const WatchList list({tagOf("D100:2", "Pump speed"), tagOf("D102")});
    QStringList names;
    for (const WatchEntry& entry : list.entries())
        names << entry.name;
    QCOMPARE(names, (QStringList{"Pump speed", "Pump speed", QString()}));
}

void WatchListTest::everyNameOfAnAddressIsListed()
{
    const WatchList list({tagOf("D100:2", "Pump speed"), tagOf("D101", "Limit"),
                          tagOf("D101@2", "Second pump"), tagOf("D101", "Limit"),
                          tagOf("D101", "Alarm")});
    QCOMPARE(namesOf(list), (QStringList{"D100 Pump speed", "D101 Pump speed", "D101 Limit",
                                         "D101 Second pump", "D101 Alarm"}));
}

void WatchListTest::anAddressTypedAndNamedIsListedOnce()
{
    const QStringList named = {"D100 Pump speed", "D101 Limit"};
    QCOMPARE(
        namesOf(WatchList({tagOf("D100:2"), tagOf("D100", "Pump speed"), tagOf("D101", "Limit")})),
        named);
    QCOMPARE(namesOf(WatchList({tagOf("D100", "Pump speed"), tagOf("D101", "Limit"),
                                tagOf("D100:2"), tagOf("D100:2")})),
             named);
}

void WatchListTest::allNamesOfAnAddressChangeTogether()
{
    WatchList list({tagOf("D100", "Pump speed"), tagOf("D101", "Other"), tagOf("D100", "Limit"),
                    tagOf("D100", "Alarm"), tagOf("D100", "Pump speed")});
    QCOMPARE(list.onRead(job(1, "D", 100, 2), always(0), 50), QList<int>({0, 1, 2, 3}));
    QCOMPARE(list.onChange(1, d(), 100, always(7), 60), QList<int>({0, 2, 3}));
    QCOMPARE(list.entries().at(2).value, qint64(7));
    QCOMPARE(list.entries().at(2).changedAt, qint64(60));
    QCOMPARE(list.onFailure(job(1, "D", 100, 1), false), QList<int>({0, 2, 3}));
    QVERIFY(!list.allAnswered());
}

/// A tag of "D100:2/float".
Tag WatchListTest::formattedTag(const char* address, const char* name)
{
    Tag tag;
    tag.name = QString::fromLatin1(name);
    QString fault;
    if (!parseValueAddress(QString::fromLatin1(address), &tag.range, &tag.format, &fault))
        qFatal("%s", qPrintable(fault));
    tag.range.station = 1;
    return tag;
}

void WatchListTest::aFormatMakesAnotherValue()
{
    const WatchList list({formattedTag("D100"), formattedTag("D100/s16"), formattedTag("D100.3"),
                          formattedTag("D100/s16", "Pump"), formattedTag("D100.3"),
                          formattedTag("D100.4"), formattedTag("D100/u16", "Raw"),
                          formattedTag("D100/s16", "Pump"), formattedTag("D100/s16", "Valve")});
    QStringList listed;
    for (const WatchEntry& entry : list.entries())
        listed << valueAddressText(entry.range(), entry.valueFormat()) + QLatin1Char(' ')
                      + entry.name;
    QCOMPARE(listed, (QStringList{"D100@1 ", "D100@1/s16 Pump", "D100.3@1 ", "D100.4@1 ",
                                  "D100@1/u16 Raw", "D100@1/s16 Valve"}));
}

void WatchListTest::anAddressInSeveralFormatsIsShared()
{
    Tag numbers = tagOf("D100:4");
    numbers.format.kind = ValueKind::Float; // D100 and D102
    const WatchList list({numbers, tagOf("D102"), tagOf("D103")});
    QStringList shared;
    for (const WatchEntry& entry : list.entries())
        shared << QString::number(entry.address) + (entry.isShared ? " shared" : "");
    QCOMPARE(shared, (QStringList{"100", "102 shared", "102 shared", "103"}));
}

void WatchListTest::aValueOfSeveralRegistersIsOneEntry()
{
    WatchList list({formattedTag("D100:2/float"), formattedTag("D101")});
    const auto numbers = [](const WatchEntry& entry) {
        QList<qint64> raw;
        for (int i = 0; i < entry.width; ++i)
            raw << entry.address + i;
        return raw;
    };
    QCOMPARE(list.entries().size(), 3);
    QCOMPARE(list.onRead(job(1, "D", 101, 3), numbers, 50), QList<int>({1, 2}));
    QCOMPARE(list.entries().at(0).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(0).raw(), QList<qint64>());
    QCOMPARE(list.entries().at(1).raw(), (QList<qint64>{102, 103}));
    QCOMPARE(list.onFailure(job(1, "D", 101, 2), true), QList<int>({2}));
    QCOMPARE(list.onRead(job(1, "D", 100, 4), numbers, 60), QList<int>({0, 2}));
    QCOMPARE(list.onChange(1, d(), 101, numbers, 70), QList<int>());
    QCOMPARE(list.onChange(1, d(), 101, always(7), 70), QList<int>({2}));
    QVERIFY(list.allAnswered());
}

void WatchListTest::firstReadMakesValuesKnown()
{
    WatchList list({tagOf("D100:4"), tagOf("D101@2"), tagOf("M101")});
    const VARIABLE read = job(1, "D", 101, 2);
    QCOMPARE(list.onRead(read, always(0), 50), QList<int>({1, 2}));
    QCOMPARE(list.entries().at(0).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(1).state, WatchState::Ok);
    QCOMPARE(list.entries().at(1).readAt, qint64(50));
    QCOMPARE(list.entries().at(2).state, WatchState::Ok);
    QCOMPARE(list.entries().at(3).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(4).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(5).state, WatchState::NeverRead);
    // The next read is told by changes only.
    QCOMPARE(list.onRead(read, always(9), 60), QList<int>());
    QCOMPARE(list.entries().at(1).value, qint64(0));
    QCOMPARE(list.entries().at(1).readAt, qint64(60));
    QCOMPARE(list.entries().at(1).reads, qint64(2));
    QCOMPARE(list.entries().at(0).reads, qint64(0));
}

void WatchListTest::countersCoverHalfTheRegisters()
{
    WatchList list({tagOf("32CV200:4")});
    // Four registers are two counters.
    QCOMPARE(list.onRead(job(1, "32CV", 200, 4), always(1), 50), QList<int>({0, 1}));
    QCOMPARE(list.entries().at(2).state, WatchState::NeverRead);
}

void WatchListTest::changeOfAKnownValue()
{
    WatchList list({tagOf("D100:2")});
    list.onRead(job(1, "D", 100, 2), always(4), 50);
    QCOMPARE(list.entries().at(1).changedAt, qint64(0));
    QCOMPARE(list.onChange(1, d(), 101, always(5), 70), QList<int>({1}));
    QCOMPARE(list.entries().at(1).value, qint64(5));
    QCOMPARE(list.entries().at(1).changedAt, qint64(70));
    QCOMPARE(list.entries().at(0).value, qint64(4));
}

void WatchListTest::changeBeforeTheFirstRead()
{
    WatchList list({tagOf("D100")});
    QCOMPARE(list.onChange(1, d(), 100, always(5), 70), QList<int>({0}));
    QCOMPARE(list.entries().at(0).value, qint64(5));
    // It became known, which is no change.
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
    QCOMPARE(list.onRead(job(1, "D", 100, 1), always(5), 80), QList<int>());
}

void WatchListTest::reportWithoutAChangeIsNone()
{
    WatchList list({tagOf("M0")});
    list.onRead(job(1, "M", 0, 1), always(1), 50);
    QCOMPARE(list.onChange(1, QString::fromLatin1("M"), 0, always(1), 70), QList<int>());
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
}

void WatchListTest::aBitDoesNotChangeWithTheOthersOfItsWord()
{
    WatchList list({formattedTag("D100"), formattedTag("D100.3")});
    QCOMPARE(list.onRead(job(1, "D", 100, 1), always(0x0000), 50), QList<int>({0, 1}));
    QCOMPARE(list.onChange(1, d(), 100, always(0x0001), 60), QList<int>{0});
    QCOMPARE(list.entries().at(1).changedAt, qint64(0));
    QCOMPARE(list.entries().at(1).value, qint64(0x0001)); // of the word, as it is now
    QCOMPARE(list.onChange(1, d(), 100, always(0x0009), 70), QList<int>({0, 1}));
    QCOMPARE(list.entries().at(1).changedAt, qint64(70));
}

void WatchListTest::changeOfAnAddressNotWatchedIsNone()
{
    WatchList list({tagOf("D0"), tagOf("D100")});
    QCOMPARE(list.onChange(1, d(), 101, always(5), 70), QList<int>());
    for (const int address : {-100, -1, 36, 164, INT_MIN, INT_MAX})
        QCOMPARE(list.onChange(1, d(), address, always(5), 70), QList<int>());
    QCOMPARE(list.onChange(1, QString::fromLatin1("d"), 100, always(5), 70), QList<int>());
    QCOMPARE(list.onChange(2, d(), 100, always(5), 70), QList<int>());
    QCOMPARE(list.onChange(1, QString::fromLatin1("SD"), 100, always(5), 70), QList<int>());
}

void WatchListTest::failureAndRecovery()
{
    WatchList list({tagOf("D100:2")});
    const VARIABLE read = job(1, "D", 100, 2);
    list.onRead(read, always(4), 50);
    QVERIFY(list.allAnswered());
    QCOMPARE(list.onFailure(job(1, "D", 101, 1), false), QList<int>({1}));
    QCOMPARE(list.entries().at(0).state, WatchState::Ok);
    QCOMPARE(list.entries().at(1).state, WatchState::NoAnswer);
    QVERIFY(!list.allAnswered());
    // Only what is new is told.
    QCOMPARE(list.onFailure(read, false), QList<int>({0}));
    QCOMPARE(list.onFailure(read, true), QList<int>({0, 1}));
    QCOMPARE(list.entries().at(0).state, WatchState::Refused);
    QCOMPARE(list.entries().at(0).value, qint64(4));
    // Back again, and told although the value is the same.
    QCOMPARE(list.onRead(read, always(4), 90), QList<int>({0, 1}));
    QVERIFY(list.allAnswered());
}

void WatchListTest::aSilentStationsEntriesAreAllUnanswered()
{
    WatchList list({tagOf("D100:2"), tagOf("D100@2"), tagOf("M0")});
    list.onRead(job(1, "D", 100, 2), always(4), 50);
    list.onFailure(job(1, "D", 101, 1), false);
    QCOMPARE(list.onSilence(1), QList<int>({0, 3}));
    QCOMPARE(list.entries().at(0).value, qint64(4));
    QCOMPARE(list.entries().at(2).state, WatchState::NeverRead);
    QCOMPARE(list.onSilence(1), QList<int>());
    QCOMPARE(list.onRead(job(1, "D", 100, 2), always(4), 60), QList<int>({0, 1}));
}

// The driver's report of the change comes behind the read.
void WatchListTest::whoIsBackHasTheValueOfNow()
{
    WatchList list({tagOf("D100")});
    list.onRead(job(1, "D", 100, 1), always(4), 50);
    list.onSilence(1);
    QCOMPARE(list.onRead(job(1, "D", 100, 1), always(9), 60), QList<int>{0});
    QCOMPARE(list.entries().at(0).state, WatchState::Ok);
    QCOMPARE(list.entries().at(0).value, qint64(9));
    QCOMPARE(list.entries().at(0).readAt, qint64(60));
    QCOMPARE(list.entries().at(0).changedAt, qint64(60));
    QCOMPARE(list.onChange(1, d(), 100, always(9), 60), QList<int>()); // is told already
}

void WatchListTest::readsInAnyOrderOfTheListAreToldInIts()
{
    WatchList list({tagOf("D103", "Last"), tagOf("D100@2"), tagOf("D101", "Second"), tagOf("D100"),
                    tagOf("D101", "Twice"), tagOf("D102")});
    QCOMPARE(list.onRead(job(1, "D", 100, 4), always(3), 50), QList<int>({0, 2, 3, 4, 5}));
    QCOMPARE(list.onFailure(job(1, "D", 101, 3), true), QList<int>({0, 2, 4, 5}));
}

void WatchListTest::readsBesideTheTypeCoverWhatIsInIt_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("count");
    QTest::addColumn<QList<int>>("covered");
    QTest::newRow("from far below") << INT_MIN << 10 << QList<int>();
    QTest::newRow("from below, reaching in") << -3 << 4 << QList<int>({0});
    QTest::newRow("to the last and beyond") << 7999 << 1000 << QList<int>({1});
    QTest::newRow("all, and as many as there are numbers") << 0 << INT_MAX << QList<int>({0, 1});
    QTest::newRow("to the highest number") << 7999 << INT_MAX << QList<int>({1});
    QTest::newRow("up to the last") << 64 << 7935 << QList<int>();
    QTest::newRow("with the last") << 64 << 7936 << QList<int>({1});
    QTest::newRow("none") << 0 << 0 << QList<int>();
    QTest::newRow("fewer than none") << 0 << -1 << QList<int>();
}

void WatchListTest::readsBesideTheTypeCoverWhatIsInIt()
{
    QFETCH(int, address);
    QFETCH(int, count);
    WatchList list({tagOf("D0"), tagOf("D7999")});
    QTEST(list.onRead(job(1, "D", address, count), always(1), 50), "covered");
}

void WatchListTest::valuesOfKeptAddressesAreKept()
{
    WatchList earlier({tagOf("D100:3"), tagOf("M0")});
    earlier.onRead(job(1, "D", 100, 2), always(4), 50);
    earlier.onChange(1, d(), 101, always(5), 70);
    earlier.onFailure(job(1, "M", 0, 1), true);
    WatchList list({tagOf("M0"), tagOf("D101", "Speed"), tagOf("D101", "Twice"), tagOf("D102"),
                    tagOf("D101@2"), tagOf("M101")});
    list.keepValuesOf(earlier);
    QCOMPARE(list.entries().at(0).state, WatchState::Refused);
    QVERIFY(!list.entries().at(0).isKnown);
    for (const int index : {1, 2}) {
        const WatchEntry& speed = list.entries().at(index);
        QCOMPARE(speed.state, WatchState::Ok);
        QVERIFY(speed.isKnown);
        QCOMPARE(speed.value, qint64(5));
        QCOMPARE(speed.readAt, qint64(50));
        QCOMPARE(speed.reads, qint64(1));
        QCOMPARE(speed.changedAt, qint64(70));
    }
    QCOMPARE(list.entries().at(1).name, QStringLiteral("Speed"));
    for (const int index : {3, 4, 5})
        QCOMPARE(list.entries().at(index).state, WatchState::NeverRead);
    QVERIFY(!list.allAnswered());
    WatchList shorter({tagOf("D101"), tagOf("D100")});
    shorter.keepValuesOf(earlier);
    QVERIFY(shorter.allAnswered());
    shorter.onFailure(job(1, "D", 100, 1), false);
    QVERIFY(!shorter.allAnswered());
}

void WatchListTest::theLongestNameIsKnown()
{
    QCOMPARE(WatchList({tagOf("D100"), tagOf("D101")}).longestName(), 0);
    QCOMPARE(
        WatchList({tagOf("D100", "Pump"), tagOf("D101", "Limit"), tagOf("M0", "On")}).longestName(),
        5);
}

/// One tag for each address, 8000 at a station.
QList<Tag> WatchListTest::manyTags(int addresses)
{
    QList<Tag> tags;
    for (int i = 0; i < addresses; ++i)
        tags << tagOf(qPrintable(QString::fromLatin1("D%1@%2").arg(i % 8000).arg(1 + i / 8000)),
                      qPrintable(QString::fromLatin1("Tag %1").arg(i)));
    return tags;
}

/// Processor time to list so many addresses and to read and change each, in units of clock().
std::clock_t WatchListTest::costOf(int addresses)
{
    const QList<Tag> tags = manyTags(addresses);
    const std::clock_t start = std::clock();
    WatchList list(tags);
    for (const Tag& tag : tags) {
        list.onRead(job(tag.range.station, "D", tag.range.address, 1), always(1), 50);
        list.onChange(tag.range.station, d(), tag.range.address, always(2), 60);
    }
    const std::clock_t cost = std::clock() - start;
    if (list.entries().size() != addresses || list.entries().last().changedAt != 60)
        qFatal("the list is not whole");
    return cost;
}

// Sixteen times as much if each address were looked for among all.
void WatchListTest::sixteenThousandAddressesCostFourTimesFourThousand()
{
    const double times = growth(costOf, 4000, 16000);
    QVERIFY2(times < 8, qPrintable(QString::number(times)));
}

/// Processor time to list an address under so many names, in units of clock().
std::clock_t WatchListTest::costOfNames(int names)
{
    QList<Tag> tags;
    for (int i = 0; i < names; ++i)
        tags << tagOf("D100", qPrintable(QString::number(i)));
    const std::clock_t start = std::clock();
    const WatchList list(tags);
    const std::clock_t cost = std::clock() - start;
    if (list.entries().size() != names)
        qFatal("the list is not whole");
    return cost;
}

// Sixteen times as much if each name were compared with all before it.
void WatchListTest::eightThousandNamesOfAnAddressCostFourTimesTwoThousand()
{
    const double times = growth(costOfNames, 2000, 8000);
    QVERIFY2(times < 8, qPrintable(QString::number(times)));
}

/// Processor time for 6400 reads and changes of 64 addresses in a list of so many.
std::clock_t WatchListTest::costOfEvents(int addresses)
{
    static QHash<int, std::shared_ptr<WatchList>> lists;
    std::shared_ptr<WatchList>& list = lists[addresses];
    if (!list)
        list = std::make_shared<WatchList>(manyTags(addresses));
    const std::clock_t start = std::clock();
    for (int i = 0; i < 6400; ++i) {
        const int address = i % 64 * (addresses / 64);
        const int station = 1 + address / 8000;
        list->onRead(job(station, "D", address % 8000, 1), always(1), 50);
        list->onChange(station, d(), address % 8000, always(i), 60);
    }
    const std::clock_t cost = std::clock() - start;
    if (list->entries().first().value != 6400 - 64)
        qFatal("the changes are not there");
    return cost;
}

// A hundred times as much if the list were walked.
void WatchListTest::aReadAndAChangeCostNoMoreInALongList()
{
    const double times = growth(costOfEvents, 1000, 100000);
    QVERIFY2(times < 4, qPrintable(QString::number(times)));
}

QTEST_GUILESS_MAIN(WatchListTest)
#include "tst_watch_list.moc"
