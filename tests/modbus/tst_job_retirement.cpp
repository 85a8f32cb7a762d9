// What becomes of a job once its reply has been dealt with.

#include "planning/monitor_flags.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <climits>

namespace
{

QList<int> addresses(const QList<VARIABLE>& jobs)
{
    QList<int> result;
    for (const VARIABLE& job : jobs)
        result << job.address;
    return result;
}

QList<VARIABLE> jobsAt(int first, int count)
{
    QList<VARIABLE> jobs;
    for (int i = 0; i < count; ++i)
        jobs << job(1, "D", first + i, 1);
    return jobs;
}

const Report DONE = {-1, -1, "-1", 0};
const Report FAILED = {-1, -1, "-1", -1};

} // namespace

Q_DECLARE_METATYPE(Report)

class JobRetirementTest : public QObject
{
    Q_OBJECT

private slots:
    void aWriteIsDroppedWhetherOrNotItSucceeded()
    {
        for (const int failed : {0, 1}) {
            DriverFixture runtime;
            driver.writeList = jobsAt(0, 2);
            driver.currentKind = WRITE_JOB;
            driver.commFailed = failed;
            dealListWhenFinish();
            QCOMPARE(addresses(driver.writeList), QList<int>() << 1);
            dealListWhenFinish();
            dealListWhenFinish();
            QVERIFY(driver.writeList.isEmpty());
            QCOMPARE(runtime.reports, QList<Report>());
        }
    }

    void aCyclicReadGoesToTheBack_data()
    {
        QTest::addColumn<int>("jobs");
        QTest::addColumn<QList<int>>("order");
        QTest::newRow("none") << 0 << QList<int>();
        QTest::newRow("one") << 1 << (QList<int>() << 0);
        QTest::newRow("two") << 2 << (QList<int>() << 1 << 0);
        QTest::newRow("three") << 3 << (QList<int>() << 1 << 2 << 0);
    }

    void aCyclicReadGoesToTheBack()
    {
        QFETCH(int, jobs);
        for (const int failed : {0, 1}) {
            DriverFixture runtime;
            driver.readList = jobsAt(0, jobs);
            driver.currentKind = CYCLIC_READ_JOB;
            driver.commFailed = failed;
            dealListWhenFinish();
            QTEST(addresses(driver.readList), "order");
        }
    }

    void otherKindsChangeNothing()
    {
        for (const int kind : {0, 1, 7, -1}) {
            DriverFixture runtime;
            driver.readList = jobsAt(0, 2);
            driver.writeList = jobsAt(10, 2);
            driver.condList = jobsAt(20, 2);
            driver.condVar = driver.condList.first();
            driver.rcpIndex = 1;
            driver.currentKind = kind;
            runtime.requestRecipeRead();
            runtime.requestRecipeWrite();
            dealListWhenFinish();
            QCOMPARE(addresses(driver.readList), QList<int>() << 0 << 1);
            QCOMPARE(addresses(driver.writeList), QList<int>() << 10 << 11);
            QCOMPARE(addresses(driver.condList), QList<int>() << 20 << 21);
            QCOMPARE(driver.rcpIndex, 1);
            QCOMPARE(int(runtime.shared[60115] + runtime.shared[60116]), 2);
            QCOMPARE(runtime.reports, QList<Report>());
        }
    }

    void theEndOfAConditionReadIsReportedBeforeItIsDropped()
    {
        DriverFixture runtime("7#0#0#3#32");
        driver.condList = jobsAt(20, 2);
        driver.condVar = driver.condList.first();
        driver.currentKind = CONDITION_READ_JOB;
        QList<int> queued;
        runtime.onReport = [&](const Report&) { queued = addresses(driver.condList); };
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>() << DONE);
        QCOMPARE(queued, QList<int>() << 20 << 21);
        QCOMPARE(addresses(driver.condList), QList<int>() << 21);
    }

    void anEarlierPieceIsDroppedSilently()
    {
        DriverFixture runtime;
        driver.condList = jobsAt(20, 2);
        driver.condVar = driver.condList.last();
        driver.currentKind = CONDITION_READ_JOB;
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>());
        QCOMPARE(addresses(driver.condList), QList<int>() << 21);
    }

    void theTargetIsStationTypeAddressAndCount_data()
    {
        QTest::addColumn<int>("station");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("reports");
        QTest::newRow("same") << 1 << "D" << 20 << 1 << 0 << 1;
        QTest::newRow("other kind") << 1 << "D" << 20 << 1 << 9 << 1;
        QTest::newRow("other station") << 2 << "D" << 20 << 1 << 0 << 0;
        QTest::newRow("other type") << 1 << "SD" << 20 << 1 << 0 << 0;
        QTest::newRow("other case") << 1 << "d" << 20 << 1 << 0 << 0;
        QTest::newRow("other address") << 1 << "D" << 21 << 1 << 0 << 0;
        QTest::newRow("other count") << 1 << "D" << 20 << 2 << 0 << 0;
    }

    void theTargetIsStationTypeAddressAndCount()
    {
        QFETCH(int, station);
        QFETCH(QString, type);
        QFETCH(int, address);
        QFETCH(int, count);
        QFETCH(int, kind);
        DriverFixture runtime;
        driver.condList = jobsAt(20, 1);
        driver.condVar = job(station, type.toLatin1().constData(), address, count);
        driver.condVar.kind = kind;
        driver.currentKind = CONDITION_READ_JOB;
        dealListWhenFinish();
        QTEST(static_cast<int>(runtime.reports.size()), "reports");
        QVERIFY(driver.condList.isEmpty());
    }

    void aFailureDropsAllConditionReads()
    {
        DriverFixture runtime;
        driver.condList = jobsAt(20, 3);
        driver.condVar = driver.condList.first();
        driver.currentKind = CONDITION_READ_JOB;
        driver.commFailed = 1;
        QList<int> queued;
        runtime.onReport = [&](const Report&) { queued = addresses(driver.condList); };
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>() << FAILED);
        QCOMPARE(queued, QList<int>() << 20 << 21 << 22);
        QVERIFY(driver.condList.isEmpty());
    }

    void whatIsDroppedIsDecidedAfterTheReport_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("inside");
        QTest::addColumn<Report>("report");
        QTest::addColumn<QList<int>>("left");
        const QList<int> none;
        const QList<int> others = {21, 22};
        QTest::newRow("good") << 0 << 0 << DONE << others;
        QTest::newRow("failed") << 1 << 1 << FAILED << none;
        QTest::newRow("good, failed inside") << 0 << 1 << DONE << none;
        QTest::newRow("failed, good inside") << 1 << 0 << FAILED << others;
        QTest::newRow("any number but 0 is a failure") << INT_MIN << 256 << FAILED << none;
    }

    // By the flag as the value-change function leaves it.
    void whatIsDroppedIsDecidedAfterTheReport()
    {
        QFETCH(int, before);
        QFETCH(int, inside);
        QFETCH(Report, report);
        DriverFixture runtime;
        driver.condList = jobsAt(20, 3);
        driver.condVar = driver.condList.first();
        driver.currentKind = CONDITION_READ_JOB;
        driver.commFailed = before;
        runtime.onReport = [&](const Report&) { driver.commFailed = inside; };
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>() << report);
        QTEST(addresses(driver.condList), "left");
        QCOMPARE(driver.commFailed, inside);
    }

    // The same in a whole exchange: of the end, or of a value that the read has changed.
    void aFailureSeenInsideAReplyDropsAll()
    {
        for (const bool changed : {false, true}) {
            DriverFixture runtime;
            driver.condList = jobsAt(20, 3);
            driver.condVar = driver.condList.first();
            _setDataAreaMonitorFlag(1, "D", 20, 1);
            runtime.poll();
            runtime.onReport = [](const Report&) { driver.commFailed = 1; };
            const QByteArray reply = withCrc(changed ? "01 03 02 1234" : "01 03 02 0000");
            QCOMPARE(runtime.deal(reply), 1);
            QCOMPARE(runtime.reports.last(), changed ? FAILED : DONE);
            QVERIFY(driver.condList.isEmpty());
        }
    }

    void aFailureTakenBackInsideTheReportDropsOne()
    {
        DriverFixture runtime("1#0#0#1#32");
        driver.condList = jobsAt(20, 3);
        driver.condVar = driver.condList.first();
        runtime.poll();
        runtime.onReport = [](const Report&) { driver.commFailed = 0; };
        QCOMPARE(runtime.deal(QByteArray()), 2);
        QCOMPARE(runtime.reports, QList<Report>() << FAILED);
        QCOMPARE(addresses(driver.condList), QList<int>({21, 22}));
    }

    void theFailureOfAnEarlierPieceIsNotReported()
    {
        DriverFixture runtime;
        driver.condList = jobsAt(20, 3);
        driver.condVar = driver.condList.last();
        driver.currentKind = CONDITION_READ_JOB;
        driver.commFailed = 1;
        dealListWhenFinish();
        QCOMPARE(runtime.reports, QList<Report>());
        QVERIFY(driver.condList.isEmpty());
    }

    void withoutConditionReadsNothingIsReported()
    {
        for (const int failed : {0, 1}) {
            DriverFixture runtime;
            driver.currentKind = CONDITION_READ_JOB;
            driver.commFailed = failed;
            dealListWhenFinish();
            QCOMPARE(runtime.reports, QList<Report>());
        }
    }
};

QTEST_APPLESS_MAIN(JobRetirementTest)
#include "tst_job_retirement.moc"
