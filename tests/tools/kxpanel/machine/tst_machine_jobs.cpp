#include "kxpanel/machine/machine_jobs.h"

#include "exchange/driver_library.h"
#include "kxpanel/machine/machine_line.h"
#include "panel/jobs/scan_job.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QtTest/QTest>

using namespace kxpanel;

class MachineJobsTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aJobEndsOnce();
    void nothingMadeEndsAtOnce();
    void abortedOnesSaySo();
    void allEndWithTheReason();
    void afterwardsReasonsAreTheirOwn();

private:
    void startScan(int ticket, int station);

    std::unique_ptr<MachineLine> m_line;
    std::unique_ptr<kx::Session> m_session;
    std::unique_ptr<MachineJobs> m_jobs;
    QStringList m_told; ///< "7: 1/1", "7 ended", "7 ended: REASON"
};

void MachineJobsTest::init()
{
    kx::ConnectionOptions options = simulated();
    options.session.retries = 1;
    options.session.exchange.replyTimeout = 200;
    QString error;
    kx::DriverEntryPoints entryPoints;
    QVERIFY2(kx::loadDriver(options.library, &entryPoints, &error), qPrintable(error));
    m_line = makeLine(options, &error);
    QVERIFY2(m_line, qPrintable(error));
    m_line->connection->open();
    QTRY_VERIFY(m_line->connection->isOpen());
    m_session =
        kx::Session::create(entryPoints, m_line->connection->line(), options.session, &error);
    QVERIFY2(m_session, qPrintable(error));
    m_session->start();
    m_told.clear();
    m_jobs = std::make_unique<MachineJobs>();
    connect(m_jobs.get(), &MachineJobs::progress, this, [this](int ticket, int done, int total) {
        m_told << QString("%1: %2/%3").arg(ticket).arg(done).arg(total);
    });
    connect(m_jobs.get(), &MachineJobs::ended, this,
            [this](int ticket, const kx::Failure& failure) {
                m_told << QString("%1 ended").arg(ticket)
                              + (failure.isNone() ? QString() : ": " + failure.text);
            });
}

void MachineJobsTest::cleanup()
{
    m_jobs.reset();
    m_session.reset();
    m_line.reset();
}

/// Station 1 is there, all others take their time.
void MachineJobsTest::startScan(int ticket, int station)
{
    m_jobs->start(
        ticket,
        [station](kx::Session* session) {
            return std::make_unique<kx::ScanJob>(session, QList<int>{station});
        },
        m_session.get());
}

void MachineJobsTest::aJobEndsOnce()
{
    startScan(7, 1);
    QVERIFY(!m_jobs->isEmpty());
    QTRY_COMPARE(m_told, (QStringList{"7: 1/1", "7 ended"}));
    QVERIFY(m_jobs->isEmpty());
    m_jobs->abort(7); // over
    m_jobs->abort(8); // never was
    QCOMPARE(m_told.size(), 2);
}

void MachineJobsTest::nothingMadeEndsAtOnce()
{
    m_jobs->start(
        7, [](kx::Session*) { return std::unique_ptr<kx::Job>(); }, m_session.get());
    QCOMPARE(m_told, (QStringList{"7 ended: it was not begun"}));
    QVERIFY(m_jobs->isEmpty());
}

void MachineJobsTest::abortedOnesSaySo()
{
    startScan(7, 2);
    startScan(8, 1);
    m_jobs->abort(7);
    QCOMPARE(m_told, (QStringList{"7 ended: cancelled"}));
    QTRY_COMPARE(m_told.last(), QString("8 ended"));
}

void MachineJobsTest::allEndWithTheReason()
{
    startScan(7, 2);
    startScan(8, 3);
    m_jobs->endAll(kx::failureOf(kx::FailureKind::LineLost, "the line is lost"));
    QCOMPARE(m_told, (QStringList{"7 ended: the line is lost", "8 ended: the line is lost"}));
    QVERIFY(m_jobs->isEmpty());
}

void MachineJobsTest::afterwardsReasonsAreTheirOwn()
{
    m_jobs->endAll(kx::failureOf(kx::FailureKind::LineLost, "the line is lost"));
    startScan(7, 2);
    m_jobs->abort(7);
    QCOMPARE(m_told, (QStringList{"7 ended: cancelled"}));
}

QTEST_MAIN(MachineJobsTest)
#include "tst_machine_jobs.moc"
