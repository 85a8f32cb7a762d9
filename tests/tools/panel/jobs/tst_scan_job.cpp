#include "support/driver_fixture.h"
#include "tools/panel/jobs/polling_run.h"

#include <QtTest/QTest>

using namespace kx;

class ScanJobTest : public QObject
{
    Q_OBJECT

private slots:
    void whoAnswers();
    void repliesOfOthers_data();
    void repliesOfOthers();
    void theWatchListStays();
    void anAbortedOneTellsHowFarItCame();
    void aLostLineEndsIt();
    void nobodyToAsk();
};

void ScanJobTest::whoAnswers()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {1, 2, 3});
    QStringList lines;
    connect(&job, &ScanJob::stationAnswered, this,
            [&](const ScanReply& reply) { lines << scanRow(reply); });
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

void ScanJobTest::repliesOfOthers_data()
{
    QTest::addColumn<QByteArray>("reply"); // to the request of station 3, which is not there
    QTest::addColumn<QStringList>("lines");
    // Station, function 3, byte count 2, value 7.
    QTest::newRow("of a station that is not asked")
        << withCrc("09 03 02 00 07") << QStringList{"1/2", "station 1: answered", "2/2"};
    QTest::newRow("of one asked later, which is told once")
        << withCrc("01 03 02 00 07")
        << QStringList{"station 1: answered with another or a late reply", "1/2", "2/2"};
}

void ScanJobTest::repliesOfOthers()
{
    QFETCH(QByteArray, reply);
    PollingRun polling;
    FaultyLine& line = polling.run().line();
    line.onRequest = [&](const QByteArray& request) {
        if (request.at(0) == 3)
            emit line.bytesArrived(reply);
    };
    ScanJob job(&polling.session(), {3, 1});
    QStringList lines;
    connect(&job, &ScanJob::stationAnswered, this,
            [&](const ScanReply& answer) { lines << scanRow(answer); });
    connect(&job, &Job::progress, this,
            [&](int done, int total) { lines << QStringLiteral("%1/%2").arg(done).arg(total); });
    job.start();
    QVERIFY(polling.untilEnded(job));
    QTEST(lines, "lines");
    QCOMPARE(job.answered(), 1);
}

void ScanJobTest::theWatchListStays()
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

void ScanJobTest::anAbortedOneTellsHowFarItCame()
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

void ScanJobTest::aLostLineEndsIt()
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

void ScanJobTest::nobodyToAsk()
{
    PollingRun polling;
    ScanJob job(&polling.session(), {});
    job.start();
    QVERIFY(job.hasEnded());
    QCOMPARE(job.asked(), 0);
}

QTEST_GUILESS_MAIN(ScanJobTest)
#include "tst_scan_job.moc"
