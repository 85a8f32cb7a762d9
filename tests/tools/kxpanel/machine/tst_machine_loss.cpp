// What a machine does while its line is lost, with kxsim as a process.

#include "panel/jobs/scan_job.h"
#include "panel/jobs/write_job.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

using namespace kxpanel;

class MachineLossTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void whatIsAskedForMeanwhileFailsAtOnce();
    void aJobEndsWhenTheLineStaysLost();
    void aJobGoesOnWhenTheLineIsSoonBack();
    void nothingIsCurrentAnyMore();
    void nothingIsCurrentWhenItIsClosed();
    void limitsAreTakenWhenItIsBack();

private:
    void startController();
    void loseLine();
    void open(int replyTimeout);

    QTemporaryDir m_folder;
    QString m_link;
    std::unique_ptr<KxsimProcess> m_controller;
    std::unique_ptr<Machine> m_machine;
    std::unique_ptr<MachineLog> m_log;
};

namespace
{

JobMaker writeOfD110(qint64 value)
{
    return [value](kx::Session* session) {
        return std::make_unique<kx::WriteJob>(
            session, QList<kx::Assignment>{{watched(1, "D110").tag.range, {value}}});
    };
}

/// On a machine with other work a lost line is noticed late; milliseconds.
const int LONG = 30000;

JobMaker scanOf(const QList<int>& stations)
{
    return [stations](kx::Session* session) {
        return std::make_unique<kx::ScanJob>(session, stations);
    };
}

} // namespace

void MachineLossTest::init()
{
    m_link = m_folder.filePath("port");
    m_machine = std::make_unique<Machine>();
    m_log = std::make_unique<MachineLog>(m_machine.get());
    m_machine->setValues({watched(1, "D110"), watched(2, "D111"), watched(3, "D112")});
    startController();
}

void MachineLossTest::cleanup()
{
    m_machine.reset();
    m_log.reset();
    m_controller.reset();
    QFile::remove(m_link);
}

void MachineLossTest::startController()
{
    QFile::remove(m_link);
    m_controller = std::make_unique<KxsimProcess>(
        QStringList{"--still", "--set", "D110=650", "--symlink", m_link});
}

void MachineLossTest::loseLine()
{
    m_controller->exitCodeAfter(SIGKILL);
    QFile::remove(m_link); // its terminal may soon be another test's
    QTRY_VERIFY_WITH_TIMEOUT(m_log->states.last().startsWith("interrupted"), LONG);
}

/// And waits until D110 was read. A request is tried three times.
void MachineLossTest::open(int replyTimeout)
{
    kx::ConnectionOptions options = serialPort(m_link);
    options.session.exchange.replyTimeout = replyTimeout;
    m_machine->openLine(options);
    QTRY_COMPARE_WITH_TIMEOUT(m_log->readings.value(1).raw, QList<qint64>{650}, LONG);
}

// Else it would be carried out when the line is back, by then to nobody's expectation.
void MachineLossTest::whatIsAskedForMeanwhileFailsAtOnce()
{
    open(500);
    loseLine();
    m_machine->startJob(7, writeOfD110(1234));
    QVERIFY(m_machine->isAtWork());
    QTRY_VERIFY_WITH_TIMEOUT(m_log->ended.contains(7), 1000); // three tries take longer
    QVERIFY(!m_machine->isAtWork());
    QCOMPARE(m_log->ended.value(7).kind, kx::FailureKind::LineLost);
    QCOMPARE(m_log->ended.value(7).text, QString("the line is lost"));
    m_log->readings.clear();
    startController();
    QTRY_COMPARE_WITH_TIMEOUT(m_log->readings.value(1).state, kx::WatchState::Ok, LONG);
    QTest::qWait(200);
    QCOMPARE(m_log->readings.value(1).raw, QList<qint64>{650}); // it was not written late
    QCOMPARE(m_log->ends, 1);
}

void MachineLossTest::aJobEndsWhenTheLineStaysLost()
{
    open(100);
    QList<int> stations;
    for (int station = 2; station <= 247; ++station)
        stations << station;
    m_machine->startJob(7, scanOf(stations)); // more than a minute
    loseLine();
    QTRY_VERIFY_WITH_TIMEOUT(m_log->ended.contains(7), LONG);
    QCOMPARE(m_log->ended.value(7).kind, kx::FailureKind::LineLost);
    QVERIFY(m_log->states.last().startsWith("interrupted")); // and it goes on trying
}

void MachineLossTest::aJobGoesOnWhenTheLineIsSoonBack()
{
    open(20000); // tried for a minute
    m_machine->startJob(7, scanOf({2, 3}));
    loseLine();
    startController();
    QTRY_VERIFY_WITH_TIMEOUT(m_log->states.last().startsWith("open"), LONG);
    QTest::qWait(100);
    QCOMPARE(m_log->ends, 0);
    m_machine->abortJob(7);
    QTRY_COMPARE_WITH_TIMEOUT(m_log->ended.value(7).kind, kx::FailureKind::Aborted, LONG);
}

void MachineLossTest::nothingIsCurrentAnyMore()
{
    open(500);
    const qint64 readAt = m_log->readings.value(1).readAt;
    loseLine();
    QTRY_COMPARE_WITH_TIMEOUT(m_log->readings.value(1).state, kx::WatchState::NoAnswer, LONG);
    QCOMPARE(m_log->readings.value(1).raw, QList<qint64>{650}); // the last that is known
    QVERIFY(m_log->readings.value(1).readAt >= readAt);
    QCOMPARE(m_log->readings.value(3).state, kx::WatchState::NoAnswer);
    startController();
    QTRY_COMPARE_WITH_TIMEOUT(m_log->readings.value(1).state, kx::WatchState::Ok, LONG);
}

void MachineLossTest::nothingIsCurrentWhenItIsClosed()
{
    open(500);
    m_machine->closeLine();
    QTRY_COMPARE_WITH_TIMEOUT(m_log->states.last(), QString("closed"), LONG);
    QCOMPARE(m_log->readings.value(1).state, kx::WatchState::NoAnswer);
    QCOMPARE(m_log->readings.value(1).raw, QList<qint64>{650});
}

void MachineLossTest::limitsAreTakenWhenItIsBack()
{
    open(500);
    loseLine();
    m_machine->setLimits(2, 0);
    startController();
    QTRY_VERIFY_WITH_TIMEOUT(m_log->states.last() == "open", LONG);
    m_log->exchanges.clear();
    QTRY_VERIFY_WITH_TIMEOUT(
        !m_log->exchanges.isEmpty() && m_log->exchanges.last().range.values <= 2, LONG);
}

QTEST_MAIN(MachineLossTest)
#include "tst_machine_loss.moc"
