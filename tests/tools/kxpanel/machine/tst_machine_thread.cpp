#include "kxpanel/machine/machine_thread.h"

#include "panel/jobs/scan_job.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QtTest/QTest>

#include <atomic>

using namespace kxpanel;

class MachineThreadTest : public QObject
{
    Q_OBJECT

private slots:
    void itTellsThisThread();
    void whatWaitsForAThreadThatStandsStillIsBounded();
    void itsEndClosesTheLine();
    void itsEndDeletesTheJobsThatRun();
    void nothingIsBegunBehindItsEnd();
};

namespace
{

kx::ConnectionOptions fast()
{
    kx::ConnectionOptions options = simulated();
    options.timing.baud = 4000000;
    return options;
}

} // namespace

void MachineThreadTest::itTellsThisThread()
{
    const MachineThread thread;
    const MachineLog log(thread.machine());
    QVERIFY(thread.machine()->thread() != QThread::currentThread());
    QThread* told = nullptr;
    const QObject here;
    connect(thread.machine(), &Machine::lineChanged, &here,
            [&told] { told = QThread::currentThread(); });
    thread.machine()->openLine(simulated());
    QTRY_COMPARE(log.states, (QStringList{"opening", "open"}));
    QCOMPARE(told, QThread::currentThread());
}

void MachineThreadTest::whatWaitsForAThreadThatStandsStillIsBounded()
{
    const int most = 100; // readings; an exchange counts as five
    const MachineThread thread(most);
    const MachineLog log(thread.machine());
    QList<Missed> missed;
    const QObject here;
    connect(thread.machine(), &Machine::missed, &here,
            [&missed](const Missed& news) { missed << news; });
    thread.machine()->setValues({watched(1, "D110")});
    thread.machine()->openLine(fast());
    QTRY_VERIFY(log.cycles > 0);
    const int before = log.batches;
    QThread::msleep(2000);
    QCoreApplication::sendPostedEvents(); // all that waited
    const int waited = log.batches - before;
    // Batches of a line so fast hold several exchanges; 40 would have come without a bound.
    QVERIFY2(waited < 30, qPrintable(QString::number(waited)));
    QTRY_COMPARE(missed.size(), 1);
    QVERIFY(missed.first().to > missed.first().from);
    const qint64 shown = log.exchanges.size();
    QTRY_VERIFY(log.exchanges.size() > shown); // it goes on
    qint64 number = 0;
    for (const Exchange& exchange : log.exchanges)
        QCOMPARE(exchange.number, ++number); // 5000 are kept, so none was lost
}

void MachineThreadTest::itsEndClosesTheLine()
{
    auto thread = std::make_unique<MachineThread>();
    const MachineLog log(thread->machine());
    thread->machine()->openLine(simulated());
    QTRY_COMPARE(log.states.value(1), QString("open"));
    thread.reset();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(log.states.last(), QString("closed"));
}

// No event loop of that thread comes by any more.
void MachineThreadTest::itsEndDeletesTheJobsThatRun()
{
    auto thread = std::make_unique<MachineThread>();
    const MachineLog log(thread->machine());
    thread->machine()->openLine(simulated());
    QTRY_COMPARE(log.states.value(1), QString("open"));
    QPointer<kx::Job> job; // the other thread's until that has ended
    std::atomic<bool> isMade{false};
    thread->machine()->startJob(Machine::newTicket(), [&job, &isMade](kx::Session* session) {
        auto made = std::make_unique<kx::ScanJob>(session, QList<int>{9}); // who does not answer
        job = made.get();
        isMade = true;
        return made;
    });
    QTRY_VERIFY(isMade);
    thread.reset();
    QVERIFY(job.isNull());
}

void MachineThreadTest::nothingIsBegunBehindItsEnd()
{
    MachineThread thread;
    const MachineLog log(thread.machine());
    thread.machine()->openLine(simulated());
    QTRY_COMPARE(log.states.value(1), QString("open"));
    thread.stop();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(log.states.last(), QString("closed"));
    bool isMade = false;
    thread.machine()->startJob(7, [&isMade](kx::Session*) {
        isMade = true;
        return nullptr;
    });
    thread.machine()->openLine(simulated());
    thread.stop(); // is over
    QTest::qWait(50);
    QVERIFY(!isMade);
    QCOMPARE(log.states.last(), QString("closed"));
}

QTEST_MAIN(MachineThreadTest)
#include "tst_machine_thread.moc"
