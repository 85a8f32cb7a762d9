// Jobs for what does not exist end with a reason, and nothing of them is sent; and what jobs tell
// reaches other threads.

#include "tools/known_type.h"
#include "tools/panel/jobs/polling_run.h"
#include "tools/panel/session/missing_ranges.h"

#include <QtCore/QThread>
#include <QtTest/QTest>

using namespace kx;

class JobRefusalsTest : public QObject
{
    Q_OBJECT

private slots:
    void rangesThatDoNotExist_data();
    void rangesThatDoNotExist();
    void valuesThatDoNotSuit_data();
    void valuesThatDoNotSuit();
    void aScanOfStationsThatDoNotExist_data();
    void aScanOfStationsThatDoNotExist();
    void answersReachOtherThreads();
    void typesAreKnownByTheirNames();
};

void JobRefusalsTest::rangesThatDoNotExist_data()
{
    addMissingRanges();
}

void JobRefusalsTest::rangesThatDoNotExist()
{
    QFETCH(AddressRange, range);
    PollingRun polling;
    Tag tag;
    tag.range = range;
    ReadJob read(&polling.session(), {tag});
    WriteJob write(&polling.session(), {{range, {1}}});
    read.start();
    write.start();
    QTRY_VERIFY(read.hasEnded() && write.hasEnded());
    QCOMPARE(read.failure().kind, FailureKind::OutOfRange);
    QCOMPARE(write.failure().kind, FailureKind::OutOfRange);
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
}

void JobRefusalsTest::valuesThatDoNotSuit_data()
{
    QTest::addColumn<int>("values");
    QTest::addColumn<qint64>("last");
    QTest::newRow("one too few, in the second request") << 39 << qint64(1);
    QTest::newRow("one too many") << 41 << qint64(1);
    QTest::newRow("the last one too high, in the second request") << 40 << qint64(65536);
}

// Of D100 to D139 in requests of 32.
void JobRefusalsTest::valuesThatDoNotSuit()
{
    QFETCH(int, values);
    QFETCH(qint64, last);
    PollingRun polling;
    Assignment assignment = {rangeOfD(100, 40, 1), {}};
    while (assignment.values.size() < values - 1)
        assignment.values << 1;
    assignment.values << last;
    WriteJob write(&polling.session(), {assignment});
    write.start();
    QTRY_VERIFY(polling.untilEnded(write));
    QCOMPARE(write.failure().text, QStringLiteral("takes 40 values from -32768 to 65535"));
    QVERIFY(polling.pollsGoOn());
    QCOMPARE(polling.asked(), QStringList());
}

void JobRefusalsTest::aScanOfStationsThatDoNotExist_data()
{
    QTest::addColumn<int>("station");
    QTest::newRow("0, which answers nobody") << 0;
    QTest::newRow("248") << 248;
    QTest::newRow("below 0") << -1;
}

void JobRefusalsTest::aScanOfStationsThatDoNotExist()
{
    QFETCH(int, station);
    PollingRun polling;
    ScanJob scan(&polling.session(), {station, 2});
    scan.start();
    QTRY_VERIFY(polling.untilEnded(scan));
    QCOMPARE(scan.failure().text, QStringLiteral("the station must be 1 to 247"));
    QCOMPARE(scan.answered(), 1);
    QCOMPARE(polling.asked(), QStringList{"02 03 00 00 00 01"});
}

void JobRefusalsTest::answersReachOtherThreads()
{
    PollingRun polling;
    ScanJob scan(&polling.session(), {1});
    QThread thread;
    QObject there;
    there.moveToThread(&thread);
    thread.start();
    QList<int> stations;
    connect(&scan, &ScanJob::stationAnswered, &there,
            [&stations](const ScanReply& reply) { stations << reply.station; });
    scan.start();
    const bool hasEnded = polling.untilEnded(scan);
    QMetaObject::invokeMethod(
        &there, [] {}, Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
    QVERIFY(hasEnded);
    QCOMPARE(stations, QList<int>{1});
}

// As connections by name, and spies, look them up.
void JobRefusalsTest::typesAreKnownByTheirNames()
{
    PollingRun polling;
    const ScanJob scan(&polling.session(), {1});
    const ReadJob read(&polling.session(), {});
    const WriteJob write(&polling.session(), {});
    for (const char* const name : {"kx::ScanReply", "kx::ReadOutcome", "kx::WriteOutcome"})
        QVERIFY2(isKnownType(name), name);
}

QTEST_GUILESS_MAIN(JobRefusalsTest)
#include "tst_job_refusals.moc"
