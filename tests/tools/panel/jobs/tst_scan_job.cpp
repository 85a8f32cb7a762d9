#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

using namespace kx;

class TestScanJob : public QObject
{
    Q_OBJECT

private slots:
    void whoAnswers();
    void theWatchListStays();
    void anAbortedOneTellsHowFarItCame();
    void aLostLineEndsIt();
    void nobodyToAsk();
};

void TestScanJob::whoAnswers()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {1, 2, 3});
    QStringList lines;
    connect(&job, &ScanJob::stationAnswered, this,
            [&](const ScanReply& reply) { lines << scanLine(reply); });
    connect(&job, &Job::progress, this,
            [&](int done, int total) { lines << QStringLiteral("%1/%2").arg(done).arg(total); });
    job.start();
    QVERIFY(polling.untilEnded(job));
    QCOMPARE(lines,
             (QStringList{"station 1: answered", "1/3", "station 2: answered", "2/3", "3/3"}));
    QCOMPARE(job.asked(), 3);
    QCOMPARE(job.answered(), 2);
    QVERIFY(job.failure().isNone()); // silence is what a scan is for
    // Function 3, register 0, one register.
    QCOMPARE(polling.asked(),
             (QStringList{"01 03 00 00 00 01", "02 03 00 00 00 01", "03 03 00 00 00 01"}));
}

void TestScanJob::theWatchListStays()
{
    PollingRun polling;
    QVERIFY(polling.pollsGoOn(1));
    ScanJob job(&polling.session(), {1, 2, 3, 4, 5, 6, 7, 8});
    job.start();
    QVERIFY(polling.pollsGoOn(2)); // in between, too
    QVERIFY(job.isRunning());
    QVERIFY(polling.untilEnded(job));
    QVERIFY(polling.pollsGoOn());
}

void TestScanJob::anAbortedOneTellsHowFarItCame()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {1, 2, 3});
    job.start();
    QVERIFY(polling.untilOnTheWay(QStringLiteral("02 03 00 00 00 01")));
    job.abort(QStringLiteral("interrupted"));
    QCOMPARE(job.asked(), 1);
    QCOMPARE(job.answered(), 1);
    QCOMPARE(job.failure().kind, FailureKind::Aborted);
}

void TestScanJob::aLostLineEndsIt()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {1, 2, 3});
    job.start();
    QVERIFY(polling.untilOnTheWay(QStringLiteral("02 03 00 00 00 01")));
    emit polling.run().line().failed(QStringLiteral("faulty line: unplugged"));
    QVERIFY(job.hasEnded());
    QCOMPARE(job.asked(), 1);
    QCOMPARE(job.failure().kind, FailureKind::LineLost);
    QCOMPARE(job.failure().text, QStringLiteral("faulty line: unplugged"));
}

void TestScanJob::nobodyToAsk()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {});
    job.start();
    QVERIFY(job.hasEnded());
    QCOMPARE(job.asked(), 0);
}

QTEST_GUILESS_MAIN(TestScanJob)
#include "tst_scan_job.moc"
