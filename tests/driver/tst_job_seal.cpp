#include "driver/job_seal.h"
#include "support/driver_fixture.h"

#include <QtTest/QTest>

namespace
{

typedef void (*Step)(QList<VARIABLE>& jobs);

} // namespace

Q_DECLARE_METATYPE(Step)

class JobSealTest : public QObject
{
    Q_OBJECT

private slots:
    void isWholeUntilTheListIsWrittenInto_data()
    {
        QTest::addColumn<Step>("step");
        QTest::addColumn<bool>("isWhole");
        const auto row = [](const char* name, Step step, bool isWhole) {
            QTest::newRow(name) << step << isWhole;
        };
        row(
            "nothing", [](QList<VARIABLE>&) {}, true);
        row(
            "read", [](QList<VARIABLE>& jobs) { QCOMPARE(jobs.at(1).address, 20); }, true);
        row(
            "copied",
            [](QList<VARIABLE>& jobs) {
                QList<VARIABLE> copy = jobs;
                copy[0].data[9] = 1;
            },
            true);
        row(
            "a byte of a payload", [](QList<VARIABLE>& jobs) { jobs[1].data[1023] = 1; }, false);
        row(
            "a job at the end", [](QList<VARIABLE>& jobs) { jobs << job(1, "D", 30, 1); }, false);
        row(
            "a job taken", [](QList<VARIABLE>& jobs) { jobs.removeFirst(); }, false);
        row(
            "emptied", [](QList<VARIABLE>& jobs) { jobs.clear(); }, false);
        row(
            "another list",
            [](QList<VARIABLE>& jobs) {
                const QList<VARIABLE> other = {job(1, "D", 10, 1), job(1, "D", 20, 1)};
                jobs = other;
            },
            false);
    }

    void isWholeUntilTheListIsWrittenInto()
    {
        QFETCH(Step, step);
        QList<VARIABLE> jobs = {job(1, "D", 10, 1), job(1, "D", 20, 1)};
        JobSeal seal;
        seal.put(jobs);
        step(jobs);
        QTEST(seal.takeOff(jobs), "isWhole");
        QCOMPARE(seal.takeOff({job(1, "D", 10, 1)}), false);
    }

    void isWholeOnlyOnce()
    {
        const QList<VARIABLE> jobs = {job(1, "D", 10, 1)};
        JobSeal seal;
        QVERIFY(!seal.takeOff(jobs));
        seal.put(jobs);
        QVERIFY(seal.takeOff(jobs));
        QVERIFY(!seal.takeOff(jobs));
    }

    // What is written then stays where it is.
    void withoutSealTheListIsNobodyElses()
    {
        QList<VARIABLE> jobs = {job(1, "D", 10, 1)};
        JobSeal seal;
        seal.put(jobs);
        QVERIFY(!jobs.isDetached());
        seal.takeOff(jobs);
        QVERIFY(jobs.isDetached());
    }
};

QTEST_APPLESS_MAIN(JobSealTest)
#include "tst_job_seal.moc"
