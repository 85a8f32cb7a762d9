// A watch of addresses that do not exist says so, and watches the others.

#include "panel/watch/watch.h"
#include "tools/faults/faulty_run.h"
#include "tools/known_type.h"
#include "tools/panel/session/missing_ranges.h"

#include <QtTest/QTest>

using namespace kx;

class WatchRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void rangesThatDoNotExist_data();
    void rangesThatDoNotExist();
    void typesAreKnownByTheirNames();
};

void WatchRefusalsTest::rangesThatDoNotExist_data()
{
    addMissingRanges();
}

void WatchRefusalsTest::rangesThatDoNotExist()
{
    QFETCH(AddressRange, range);
    FaultyRun run((FaultyRunSettings()));
    QList<Failure> failures;
    connect(&run.session(), &Session::failed, this,
            [&failures](const Failure& failure) { failures << failure; });
    Watch watch(&run.session());
    qint64 cycles = 0;
    connect(&watch, &Watch::cycleFinished, this, [&cycles](qint64 count) { cycles = count; });
    Tag wrong;
    wrong.range = range;
    Tag right;
    right.range = rangeOfD(0, 8, 1);
    watch.setTags({wrong, right});
    QTRY_COMPARE(failures.size(), 1);
    QCOMPARE(failures.first().kind, FailureKind::OutOfRange);
    run.runUntil([&cycles] { return cycles >= 3; });
    QCOMPARE(static_cast<int>(watch.list().entries().size()), 8);
    QVERIFY(!watch.hasDeviceFailed());
}

void WatchRefusalsTest::typesAreKnownByTheirNames()
{
    FaultyRun run((FaultyRunSettings()));
    const Watch watch(&run.session());
    for (const char* const name : {"kx::LinkEvent", "QList<int>"})
        QVERIFY2(isKnownType(name), name);
}

QTEST_GUILESS_MAIN(WatchRefusalsTest)
#include "tst_watch_refusals.moc"
