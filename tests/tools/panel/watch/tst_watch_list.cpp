#include "panel/watch/watch_list.h"
#include "support/driver_fixture.h"
#include "tools/panel/watch/watch_entries.h"

#include <QtTest/QTest>

#include <algorithm>
#include <ctime>
#include <limits>

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
    void firstReadMakesValuesKnown();
    void countersCoverHalfTheRegisters();
    void changeOfAKnownValue();
    void changeBeforeTheFirstRead();
    void reportWithoutAChangeIsNone();
    void changeOfAnAddressNotWatchedIsNone();
    void failureAndRecovery();
    void sixteenThousandAddressesCostFourTimesFourThousand();

private:
    static WatchList::ValueSource always(qint64 value)
    {
        return [value](const WatchEntry&) { return value; };
    }
    static QStringList namesOf(const WatchList& list);
    static std::clock_t costOf(int addresses);
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
    WatchList list({tagOf("D100", "Pump speed"), tagOf("D101", "Other"), tagOf("D100", "Limit")});
    QCOMPARE(list.takeRead(job(1, "D", 100, 2), always(0), 50), QList<int>({0, 1, 2}));
    QCOMPARE(list.takeChange(1, d(), 100, always(7), 60), QList<int>({0, 2}));
    QCOMPARE(list.entries().at(2).value, qint64(7));
    QCOMPARE(list.entries().at(2).changedAt, qint64(60));
    QCOMPARE(list.takeFailure(job(1, "D", 100, 1), false), QList<int>({0, 2}));
    QVERIFY(!list.allAnswered());
}

void WatchListTest::firstReadMakesValuesKnown()
{
    WatchList list({tagOf("D100:4"), tagOf("D101@2"), tagOf("M101")});
    const VARIABLE read = job(1, "D", 101, 2);
    QCOMPARE(list.takeRead(read, always(0), 50), QList<int>({1, 2}));
    QCOMPARE(list.entries().at(0).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(1).state, WatchState::Ok);
    QCOMPARE(list.entries().at(1).readAt, qint64(50));
    QCOMPARE(list.entries().at(2).state, WatchState::Ok);
    QCOMPARE(list.entries().at(3).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(4).state, WatchState::NeverRead);
    QCOMPARE(list.entries().at(5).state, WatchState::NeverRead);
    // The next read is told by changes only.
    QCOMPARE(list.takeRead(read, always(9), 60), QList<int>());
    QCOMPARE(list.entries().at(1).value, qint64(0));
    QCOMPARE(list.entries().at(1).readAt, qint64(60));
}

void WatchListTest::countersCoverHalfTheRegisters()
{
    WatchList list({tagOf("32CV200:4")});
    // Four registers are two counters.
    QCOMPARE(list.takeRead(job(1, "32CV", 200, 4), always(1), 50), QList<int>({0, 1}));
    QCOMPARE(list.entries().at(2).state, WatchState::NeverRead);
}

void WatchListTest::changeOfAKnownValue()
{
    WatchList list({tagOf("D100:2")});
    list.takeRead(job(1, "D", 100, 2), always(4), 50);
    QCOMPARE(list.entries().at(1).changedAt, qint64(0));
    QCOMPARE(list.takeChange(1, d(), 101, always(5), 70), QList<int>({1}));
    QCOMPARE(list.entries().at(1).value, qint64(5));
    QCOMPARE(list.entries().at(1).changedAt, qint64(70));
    QCOMPARE(list.entries().at(0).value, qint64(4));
}

void WatchListTest::changeBeforeTheFirstRead()
{
    WatchList list({tagOf("D100")});
    QCOMPARE(list.takeChange(1, d(), 100, always(5), 70), QList<int>({0}));
    QCOMPARE(list.entries().at(0).value, qint64(5));
    // It became known, which is no change.
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
    QCOMPARE(list.takeRead(job(1, "D", 100, 1), always(5), 80), QList<int>());
}

void WatchListTest::reportWithoutAChangeIsNone()
{
    WatchList list({tagOf("M0")});
    list.takeRead(job(1, "M", 0, 1), always(1), 50);
    QCOMPARE(list.takeChange(1, QString::fromLatin1("M"), 0, always(1), 70), QList<int>());
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
}

void WatchListTest::changeOfAnAddressNotWatchedIsNone()
{
    WatchList list({tagOf("D100")});
    QCOMPARE(list.takeChange(1, d(), 101, always(5), 70), QList<int>());
    QCOMPARE(list.takeChange(2, d(), 100, always(5), 70), QList<int>());
    QCOMPARE(list.takeChange(1, QString::fromLatin1("SD"), 100, always(5), 70), QList<int>());
}

void WatchListTest::failureAndRecovery()
{
    WatchList list({tagOf("D100:2")});
    const VARIABLE read = job(1, "D", 100, 2);
    list.takeRead(read, always(4), 50);
    QVERIFY(list.allAnswered());
    QCOMPARE(list.takeFailure(job(1, "D", 101, 1), false), QList<int>({1}));
    QCOMPARE(list.entries().at(0).state, WatchState::Ok);
    QCOMPARE(list.entries().at(1).state, WatchState::NoAnswer);
    QVERIFY(!list.allAnswered());
    // Only what is new is told.
    QCOMPARE(list.takeFailure(read, false), QList<int>({0}));
    QCOMPARE(list.takeFailure(read, true), QList<int>({0, 1}));
    QCOMPARE(list.entries().at(0).state, WatchState::Refused);
    QCOMPARE(list.entries().at(0).value, qint64(4));
    // Back again, and told although the value is the same.
    QCOMPARE(list.takeRead(read, always(4), 90), QList<int>({0, 1}));
    QVERIFY(list.allAnswered());
}

/// Processor time to list so many addresses and to read and change each, in units of clock().
std::clock_t WatchListTest::costOf(int addresses)
{
    QList<Tag> tags;
    for (int i = 0; i < addresses; ++i)
        tags << tagOf(qPrintable(QString::fromLatin1("D%1@%2").arg(i % 8000).arg(1 + i / 8000)),
                      qPrintable(QString::fromLatin1("Tag %1").arg(i)));
    const std::clock_t start = std::clock();
    WatchList list(tags);
    for (const Tag& tag : tags) {
        list.takeRead(job(tag.range.station, "D", tag.range.address, 1), always(1), 50);
        list.takeChange(tag.range.station, d(), tag.range.address, always(2), 60);
    }
    const std::clock_t cost = std::clock() - start;
    if (list.entries().size() != addresses || list.entries().last().changedAt != 60)
        qFatal("the list is not whole");
    return cost;
}

// Sixteen times as much if each address were looked for among all.
void WatchListTest::sixteenThousandAddressesCostFourTimesFourThousand()
{
    std::clock_t few = std::numeric_limits<std::clock_t>::max();
    std::clock_t many = std::numeric_limits<std::clock_t>::max();
    // The best of ten each, in turns: other programs use the processor's caches, too.
    for (int attempt = 0; attempt < 10; ++attempt) {
        few = std::min(few, costOf(4000));
        many = std::min(many, costOf(16000));
    }
    QVERIFY2(many < 8 * few, qPrintable(QString::fromLatin1("%1 and %2").arg(few).arg(many)));
}

QTEST_GUILESS_MAIN(WatchListTest)
#include "tst_watch_list.moc"
