// A session at work in a thread of its own, and back on the main thread.

#include "exchange/lines/serial_line.h"
#include "kxsim/service/simulated_line.h"
#include "panel/session/session.h"
#include "registers/register_types.h"
#include "support/driver_fixture.h"
#include "tools/exchange/scripted_line.h"

#include <QtCore/QThread>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

AddressRange registerD(int address)
{
    AddressRange range;
    range.type = findRegisterType(QStringLiteral("D"));
    range.address = address;
    range.station = 1;
    return range;
}

kxsim::Simulation standingStill()
{
    kxsim::Simulation simulation;
    simulation.moves = false;
    return simulation;
}

SessionSettings quickSettings()
{
    SessionSettings settings;
    settings.exchange = {500, 20, 5};
    return settings;
}

} // namespace

class SessionThreadTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void aMovedSessionLeavesNothingBehind();
    void aMovedSessionPollsAndAnswersAcrossThreads();
    void aSessionMadeAndDeletedInTheThread();
    void onAPseudoTerminal_data();
    void onAPseudoTerminal();

private:
    /// Does it in the thread, and waits for that.
    template <class Function>
    void inThread(Function function)
    {
        QMetaObject::invokeMethod(m_there.get(), function, Qt::BlockingQueuedConnection);
    }

    DriverEntryPoints m_entryPoints;
    QThread m_thread;
    std::unique_ptr<QObject> m_there; ///< lives in the thread
};

void SessionThreadTest::initTestCase()
{
    QString error;
    QVERIFY2(loadDriver(QString::fromLatin1(KX_DRIVER_FILE), &m_entryPoints, &error),
             qPrintable(error));
}

void SessionThreadTest::init()
{
    m_there = std::make_unique<QObject>();
    m_there->moveToThread(&m_thread);
    m_thread.start();
}

void SessionThreadTest::cleanup()
{
    m_thread.quit();
    QVERIFY(m_thread.wait(5000));
    m_there.reset();
}

void SessionThreadTest::aMovedSessionLeavesNothingBehind()
{
    ScriptedLine line;
    QString error;
    std::unique_ptr<Session> session =
        Session::create(m_entryPoints, &line, quickSettings(), &error);
    QVERIFY2(session, qPrintable(error));
    session->moveToThread(&m_thread);
    // The loop, its clock and the clock's timer.
    const QList<QObject*> members = session->findChildren<QObject*>();
    QVERIFY(members.size() >= 3);
    for (const QObject* member : members)
        QCOMPARE(member->thread(), &m_thread);
    inThread([&session] { session.reset(); });
}

void SessionThreadTest::aMovedSessionPollsAndAnswersAcrossThreads()
{
    ScriptedLine line;
    QString error;
    std::unique_ptr<Session> session =
        Session::create(m_entryPoints, &line, quickSettings(), &error);
    QVERIFY2(session, qPrintable(error));
    line.answer({{1, withCrc("01 03 02 00 08")}}); // byte count 2, D100 = 8
    line.answer({{1, withCrc("01 03 02 00 07")}}); // D0 = 7
    line.moveToThread(&m_thread);
    session->moveToThread(&m_thread);
    QSignalSpy changes(session.get(), &Session::valueChanged);
    QSignalSpy reads(session.get(), &Session::readFinished);
    QList<QThread*> told;
    connect(session.get(), &Session::valueChanged, this,
            [&told] { told << QThread::currentThread(); });
    int handle = 0;
    inThread([&] {
        session->start();
        handle = session->read(registerD(100));
    });
    QTRY_COMPARE(reads.size(), 1);
    inThread([&] { session->watch({registerD(0)}); });
    QTRY_COMPARE(changes.size(), 1);
    QCOMPARE(changes.first().first().value<ValueChange>().value, qint64(7));
    QCOMPARE(reads.first().first().toInt(), handle);
    QCOMPARE(reads.first().last().value<ReadEnd>().values, QList<qint64>({8}));
    QTRY_COMPARE(told, QList<QThread*>{thread()});
    inThread([&session] { session.reset(); });
    inThread([&line, this] { line.moveToThread(thread()); });
}

void SessionThreadTest::aSessionMadeAndDeletedInTheThread()
{
    for (int times = 0; times < 2; ++times) {
        int idle = 0;
        inThread([&] {
            QString error;
            ScriptedLine line;
            const std::unique_ptr<Session> session =
                Session::create(m_entryPoints, &line, quickSettings(), &error);
            QVERIFY2(session, qPrintable(error));
            connect(session.get(), &Session::idle, session.get(), [&idle] { ++idle; });
            session->start();
            QTRY_VERIFY(idle > 2);
        });
        QVERIFY(idle > 2);
    }
    // And the driver is free for one of this thread.
    ScriptedLine line;
    QString error;
    QVERIFY(Session::create(m_entryPoints, &line, quickSettings(), &error));
}

void SessionThreadTest::onAPseudoTerminal_data()
{
    QTest::addColumn<bool>("isInThread");
    QTest::newRow("on the main thread") << false;
    QTest::newRow("in a thread of its own") << true;
}

void SessionThreadTest::onAPseudoTerminal()
{
    QFETCH(bool, isInThread);
    QString error;
    const std::unique_ptr<kxsim::SimulatedLine> controllers =
        kxsim::SimulatedLine::start(standingStill(), &error);
    QVERIFY2(controllers, qPrintable(error));
    std::unique_ptr<Line> line;
    std::unique_ptr<Session> session;
    QList<qint64> read;
    QStringList failures;
    const auto begin = [&] {
        line = std::make_unique<SerialLine>(controllers->portName(), LineTiming(),
                                            QSerialPort::NoParity);
        line->open();
        QString reason;
        session = Session::create(m_entryPoints, line.get(), quickSettings(), &reason);
        connect(session.get(), &Session::writeFinished, session.get(),
                [&](int, const WriteEnd& end) {
                    failures << end.failure.text;
                    session->read(registerD(100));
                });
        connect(session.get(), &Session::readFinished, this,
                [&read](int, const ReadEnd& end) { read = end.values; });
        session->watch({registerD(0)});
        session->start();
        session->write({registerD(100), {1234}});
    };
    const auto end = [&] {
        session.reset();
        line.reset();
    };
    if (isInThread)
        inThread(begin);
    else
        begin();
    QTRY_COMPARE(read, QList<qint64>({1234}));
    if (isInThread)
        inThread(end);
    else
        end();
    QCOMPARE(failures, QStringList{QString()});
}

QTEST_GUILESS_MAIN(SessionThreadTest)
#include "tst_session_thread.moc"
