#include "kxhost/watch_list.h"
#include "support/driver_fixture.h"
#include "tools/kxhost/watch_entries.h"

#include <QtTest/QTest>

class WatchListTest : public QObject
{
    Q_OBJECT

private slots:
    void addressesAreListedOnceInOrder();
    void everyValueOfATagHasItsName();
    void firstNameOfAnAddressIsKept();
    void firstReadMakesValuesKnown();
    void countersCoverHalfTheRegisters();
    void changeOfAKnownValue();
    void changeBeforeTheFirstRead();
    void reportWithoutAChangeIsNone();
    void changeOfAnAddressNotWatchedIsNone();
    void failureAndRecovery();

private:
    static WatchList::ValueSource always(qint64 value)
    {
        return [value](const WatchEntry&) { return value; };
    }
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

void WatchListTest::everyValueOfATagHasItsName()
{
    const WatchList list({tagOf("D100:2", "Pump speed"), tagOf("D102")});
    QStringList names;
    for (const WatchEntry& entry : list.entries())
        names << entry.name;
    QCOMPARE(names, (QStringList{"Pump speed", "Pump speed", QString()}));
}

void WatchListTest::firstNameOfAnAddressIsKept()
{
    const WatchList list({tagOf("D100"), tagOf("D100:2", "Pump speed"), tagOf("D101", "Other"),
                          tagOf("D101"), tagOf("D101@2", "Second pump")});
    QStringList names;
    for (const WatchEntry& entry : list.entries())
        names << entry.name;
    QCOMPARE(names, (QStringList{"Pump speed", "Pump speed", "Second pump"}));
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
    QCOMPARE(list.takeChange(1, d(), 101, always(5), 70), 1);
    QCOMPARE(list.entries().at(1).value, qint64(5));
    QCOMPARE(list.entries().at(1).changedAt, qint64(70));
    QCOMPARE(list.entries().at(0).value, qint64(4));
}

void WatchListTest::changeBeforeTheFirstRead()
{
    WatchList list({tagOf("D100")});
    QCOMPARE(list.takeChange(1, d(), 100, always(5), 70), 0);
    QCOMPARE(list.entries().at(0).value, qint64(5));
    // It became known, which is no change.
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
    QCOMPARE(list.takeRead(job(1, "D", 100, 1), always(5), 80), QList<int>());
}

void WatchListTest::reportWithoutAChangeIsNone()
{
    WatchList list({tagOf("M0")});
    list.takeRead(job(1, "M", 0, 1), always(1), 50);
    QCOMPARE(list.takeChange(1, QString::fromLatin1("M"), 0, always(1), 70), -1);
    QCOMPARE(list.entries().at(0).changedAt, qint64(0));
}

void WatchListTest::changeOfAnAddressNotWatchedIsNone()
{
    WatchList list({tagOf("D100")});
    QCOMPARE(list.takeChange(1, d(), 101, always(5), 70), -1);
    QCOMPARE(list.takeChange(2, d(), 100, always(5), 70), -1);
    QCOMPARE(list.takeChange(1, QString::fromLatin1("SD"), 100, always(5), 70), -1);
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

QTEST_GUILESS_MAIN(WatchListTest)
#include "tst_watch_list.moc"
