// The runtime driven by events polls the simulated controller, and a station that the test
// plays itself.

#include "kxsim_process.h"
#include "runtime_process.h"
#include "scripted_port.h"
#include "support/driver_fixture.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <csignal>

namespace
{

// Read one register from 100 on at station 1, and what answers it with 1234.
const char READ[] = "01 03 00 64 00 01";
const char READ_REPLY[] = "01 03 02 04 D2";
// Write 1234 to register 100; the reply says the same.
const char WRITE[] = "01 06 00 64 04 D2";

} // namespace

class EventDrivenRuntimeTest : public QObject
{
    Q_OBJECT

private slots:
    void aValueAndItsChange();
    void writing();
    void onALineWithFaults_data();
    void onALineWithFaults();
    void nobodyAnswers();
    void exceptionsAreHandedOverAtOnce();
    void otherRepliesAreThrownAway_data();
    void otherRepliesAreThrownAway();
    void theWaitGoesOn();
    void aLateReplyHasTimeToCome();
    void aLineThatIsNeverSilent();
    void aLostPort();
    void noPort();
    void wrongArguments_data();
    void wrongArguments();

private:
    static QStringList arguments(const QString& port, const char* rest)
    {
        return QStringList(port) + QString(rest).split(' ');
    }
};

void EventDrivenRuntimeTest::aValueAndItsChange()
{
    KxsimProcess simulator({"--still", "--set", "D100=1234"});
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100"));
    QCOMPARE(runtime.readLine(), QString("D100 = 1234"));
    simulator.tell("set D100=65535");
    QCOMPARE(runtime.readLine(), QString("D100 = 65535"));
}

void EventDrivenRuntimeTest::writing()
{
    KxsimProcess simulator({"--still"});
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100=1234 3"));
    QCOMPARE(runtime.readLines(), QStringList("D100 = 1234"));
    QCOMPARE(runtime.exitCode(), 0);
    QCOMPARE(simulator.ask("get D100"), QString("D100=1234"));
}

void EventDrivenRuntimeTest::onALineWithFaults_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("the request comes back, then the reply") << "echo";
    QTest::newRow("noise before the reply") << "extra-before";
    QTest::newRow("noise behind the reply") << "extra-after";
    QTest::newRow("the reply twice") << "duplicate";
}

void EventDrivenRuntimeTest::onALineWithFaults()
{
    QFETCH(QString, kind);
    KxsimProcess simulator({"--set", "D100=1234", "--fault", kind + ":1"});
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100 3"));
    QCOMPARE(runtime.readLines(), QStringList("D100 = 1234"));
}

void EventDrivenRuntimeTest::nobodyAnswers()
{
    KxsimProcess simulator({"--station", "2"}); // the runtime asks station 1
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100 3"));
    QCOMPARE(runtime.readLines(), QStringList("failed: 0,1,100,D"));
    QCOMPARE(runtime.exitCode(), 0);
}

// Waiting for the time-out of each would take longer than the test waits.
void EventDrivenRuntimeTest::exceptionsAreHandedOverAtOnce()
{
    KxsimProcess simulator({"--fault", "exception:1"});
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100 60"));
    const QStringList lines = runtime.readLines();
    QCOMPARE(runtime.exitCode(), 0);
    QCOMPARE(lines.count("refused: exception 6"), 60);
    QCOMPARE(lines.count("failed: 5,1,100,D"), 20);
}

void EventDrivenRuntimeTest::otherRepliesAreThrownAway_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("other");
    const QByteArray read = withCrc(READ);
    QTest::newRow("read: station") << "100" << read << withCrc("02 03 02 00 07");
    QTest::newRow("read: function") << "100" << read << withCrc("01 04 02 00 07");
    QTest::newRow("read: byte count") << "100" << read << withCrc("01 03 04 00 07");
    QTest::newRow("read: exception of another station") << "100" << read << withCrc("02 83 02");
    QTest::newRow("read: exception of another function") << "100" << read << withCrc("01 81 02");
    const QByteArray write = withCrc(WRITE);
    QTest::newRow("write: station") << "100=1234" << write << withCrc("02 06 00 64 04 D2");
    QTest::newRow("write: function") << "100=1234" << write << withCrc("01 05 00 64 04 D2");
    QTest::newRow("write: address") << "100=1234" << write << withCrc("01 06 00 65 04 D2");
    QTest::newRow("write: value") << "100=1234" << write << withCrc("01 06 00 64 04 D3");
}

// All have the length of a reply or an exception and a good CRC. Taken, each would be shown.
void EventDrivenRuntimeTest::otherRepliesAreThrownAway()
{
    QFETCH(QString, address);
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, other);
    const ScriptedPort station;
    RuntimeProcess runtime(KX_RUNTIME, {station.name(), address, "1"});
    QCOMPARE(station.request(8), request);
    station.send(other);
    QCOMPARE(runtime.readLines(), QStringList());
    QCOMPARE(runtime.exitCode(), 0);
}

// What came before does not count, and noise may come behind. Three times, should the machine
// be too slow for the time-out once.
void EventDrivenRuntimeTest::theWaitGoesOn()
{
    const ScriptedPort station;
    RuntimeProcess runtime(KX_RUNTIME, arguments(station.name(), "100 3"));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(station.request(8), withCrc(READ));
        station.send(withCrc("02 03 02 00 07"));
        QTest::qWait(100);
        station.send(withCrc(READ_REPLY) + '\x55');
    }
    QCOMPARE(runtime.readLines(), QStringList("D100 = 1234"));
}

// The next request waits for one as long as for a reply in time.
void EventDrivenRuntimeTest::aLateReplyHasTimeToCome()
{
    const ScriptedPort station;
    QElapsedTimer clock;
    clock.start();
    RuntimeProcess runtime(KX_RUNTIME, arguments(station.name(), "100 2"));
    QCOMPARE(station.request(8), withCrc(READ));
    QCOMPARE(station.request(8), withCrc(READ));
    QVERIFY(clock.elapsed() >= 1000);
    station.send(withCrc(READ_REPLY));
    QCOMPARE(runtime.readLines(), QStringList("D100 = 1234"));
}

void EventDrivenRuntimeTest::aLineThatIsNeverSilent()
{
    const ScriptedPort station;
    RuntimeProcess runtime(KX_RUNTIME, arguments(station.name(), "100 3"));
    const QDeadlineTimer patience(30000);
    while (runtime.isRunning() && !patience.hasExpired()) {
        station.send(QByteArray(4, '\x55'));
        QTest::qSleep(1);
    }
    QCOMPARE(runtime.readLines(), QStringList("failed: 0,1,100,D"));
}

void EventDrivenRuntimeTest::aLostPort()
{
    KxsimProcess simulator({"--still", "--set", "D100=1234"});
    QVERIFY(!simulator.portName().isEmpty());
    RuntimeProcess runtime(KX_RUNTIME, arguments(simulator.portName(), "100"));
    QCOMPARE(runtime.readLine(), QString("D100 = 1234"));
    QCOMPARE(simulator.exitCodeAfter(SIGTERM), 0);
    QCOMPARE(runtime.exitCode(), 1);
    QVERIFY(runtime.errorOutput().startsWith("event_driven_runtime: "));
}

void EventDrivenRuntimeTest::noPort()
{
    RuntimeProcess runtime(KX_RUNTIME, {"/nowhere", "100"});
    QCOMPARE(runtime.exitCode(), 1);
    QVERIFY(runtime.errorOutput().startsWith("event_driven_runtime: "));
}

void EventDrivenRuntimeTest::wrongArguments_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("not a number") << "D100";
    QTest::newRow("past the last") << "8000";
    QTest::newRow("a value that is no number") << "100=x";
    QTest::newRow("a value of more than 16 bits") << "100=65536";
    QTest::newRow("no value") << "100=";
    QTest::newRow("two values") << "100=1=2";
}

// None of them is polled or written as something else.
void EventDrivenRuntimeTest::wrongArguments()
{
    QFETCH(QString, address);
    const ScriptedPort station;
    RuntimeProcess runtime(KX_RUNTIME, {station.name(), address, "1"});
    QCOMPARE(runtime.exitCode(), 1);
    QCOMPARE(runtime.errorOutput(), "event_driven_runtime: " + address
                                        + " is not an address of type D, nor one with a value");
}

QTEST_GUILESS_MAIN(EventDrivenRuntimeTest)
#include "tst_event_driven_runtime.moc"
