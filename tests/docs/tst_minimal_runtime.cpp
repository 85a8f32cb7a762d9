// The smallest runtime polls the simulated controller over a pseudo-terminal.

#include "kxsim/line/pseudo_terminal.h"
#include "kxsim_process.h"
#include "support/driver_fixture.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <poll.h>

namespace
{

const int PATIENCE = 30000; // milliseconds
const int TIMEOUT = 1000;   // milliseconds, of the runtime

// Station 1, function 3, D100, quantity 1.
const char* const READ = "01 03 00 64 00 01";
// Station 1, function 3, byte count 2, 1234.
const char* const READ_REPLY = "01 03 02 04 D2";
// Station 1, function 6, D100, 7; the reply is the same.
const char* const WRITE = "01 06 00 64 00 07";

/// The runtime as a process, with the driver library where the system looks for it.
class RuntimeProcess
{
public:
    RuntimeProcess(const QString& port, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_LIBRARY_PATH", KX_DRIVER_FOLDER);
        m_process.setProcessEnvironment(environment);
        m_process.start(KX_MINIMAL_RUNTIME, QStringList() << port << arguments);
    }
    ~RuntimeProcess()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    QString readLine()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(PATIENCE)) {
        }
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }

    /// Passes over others.
    bool waitForLine(const QString& line)
    {
        for (QString read = readLine(); !read.isEmpty(); read = readLine()) {
            if (read == line)
                return true;
        }
        return false;
    }

    int exitCode()
    {
        m_process.waitForFinished(PATIENCE);
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
};

/// The other end of the line: waits for requests and answers what a test says.
class ScriptedController
{
public:
    ScriptedController() : m_line(kxsim::PseudoTerminal::open(&m_error)) {}

    QString portName() const { return m_line->name(); }

    /// The next request, of eight bytes; less when it takes longer than PATIENCE.
    QByteArray request()
    {
        pollfd wait = {m_line->descriptor(), POLLIN, 0};
        QByteArray received;
        while (received.size() < 8 && ::poll(&wait, 1, PATIENCE) == 1 && m_line->receive(&received))
            ;
        return received;
    }
    void answer(const QByteArray& reply) { m_line->send(reply); }

private:
    QString m_error;
    std::unique_ptr<kxsim::PseudoTerminal> m_line;
};

} // namespace

class MinimalRuntimeTest : public QObject
{
    Q_OBJECT

private slots:
    void aValueAndItsChange()
    {
        KxsimProcess simulator({"--still", "--set", "D100=1234"});
        QVERIFY(!simulator.portName().isEmpty());
        RuntimeProcess runtime(simulator.portName(), {"100"});
        QCOMPARE(runtime.readLine(), QString("D100 = 1234"));
        simulator.tell("set D100=65535");
        QCOMPARE(runtime.readLine(), QString("D100 = 65535"));
    }

    void nobodyAnswers()
    {
        KxsimProcess simulator({"--station", "2"}); // the runtime asks station 1
        QVERIFY(!simulator.portName().isEmpty());
        RuntimeProcess runtime(simulator.portName(), {"100", "3"});
        QCOMPARE(runtime.readLine(), QString("no answer: 0,1,100,D"));
        QCOMPARE(runtime.exitCode(), 0);
    }

    // Length and CRC are right, so the driver would take it.
    void anotherStationAnswers()
    {
        KxsimProcess simulator({"--fault", "other-station:1"});
        QVERIFY(!simulator.portName().isEmpty());
        QElapsedTimer time;
        time.start();
        RuntimeProcess runtime(simulator.portName(), {"100", "3"});
        QCOMPARE(runtime.readLine(), QString("no answer: 0,1,100,D"));
        // The wait went on after each of the three replies.
        QVERIFY(time.elapsed() >= 3 * TIMEOUT);
    }

    void aReplyIsTakenAmongOthers_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("behind another station's") << withCrc("02 03 02 00 05");
        QTest::newRow("behind another function's") << withCrc("01 01 02 00 05");
        QTest::newRow("behind one of another length") << withCrc("01 03 04 00 05 00 06");
        QTest::newRow("behind the late one to a write") << withCrc(WRITE);
        QTest::newRow("behind another station's exception") << withCrc("02 83 02");
        QTest::newRow("behind another function's exception") << withCrc("01 86 02");
        QTest::newRow("behind two") << withCrc("02 03 02 00 05") + withCrc("03 03 02 00 06");
    }

    void aReplyIsTakenAmongOthers()
    {
        QFETCH(QByteArray, before);
        ScriptedController controller;
        RuntimeProcess runtime(controller.portName(), {"100", "1"});
        QCOMPARE(controller.request(), withCrc(READ));
        controller.answer(before + withCrc(READ_REPLY));
        QCOMPARE(runtime.readLine(), QString("D100 = 1234"));
        QCOMPARE(runtime.exitCode(), 0);
    }

    void aReplyInPiecesIsTaken()
    {
        ScriptedController controller;
        RuntimeProcess runtime(controller.portName(), {"100", "1"});
        QCOMPARE(controller.request(), withCrc(READ));
        controller.answer(withCrc(READ_REPLY).left(2));
        QTest::qWait(20);
        controller.answer(withCrc(READ_REPLY).mid(2));
        QCOMPARE(runtime.readLine(), QString("D100 = 1234"));
    }

    void aWriteAndItsEcho()
    {
        ScriptedController controller;
        RuntimeProcess runtime(controller.portName(), {"100=7", "2"});
        QCOMPARE(controller.request(), withCrc(WRITE));
        controller.answer(withCrc(WRITE));
        QCOMPARE(runtime.readLine(), QString("D100 = 7"));
        QCOMPARE(controller.request(), withCrc(READ));
    }

    void aWriteIsNotConfirmedByAnother_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::newRow("another station") << withCrc("02 06 00 64 00 07");
        QTest::newRow("another function") << withCrc("01 05 00 64 00 07");
        QTest::newRow("another address") << withCrc("01 06 00 65 00 07");
        QTest::newRow("another value") << withCrc("01 06 00 64 00 08");
    }

    void aWriteIsNotConfirmedByAnother()
    {
        QFETCH(QByteArray, reply);
        ScriptedController controller;
        RuntimeProcess runtime(controller.portName(), {"100=7", "1"});
        QCOMPARE(controller.request(), withCrc(WRITE));
        controller.answer(reply);
        QCOMPARE(runtime.readLine(), QString()); // nothing until the end of the time-out
        QCOMPARE(runtime.exitCode(), 0);
    }

    void anExceptionNeedsNoTimeOut()
    {
        ScriptedController controller;
        RuntimeProcess runtime(controller.portName(), {"100", "3"});
        QElapsedTimer time;
        qint64 shortest = 3 * TIMEOUT; // of three waits: a busy machine makes some longer
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(controller.request(), withCrc(READ));
            if (time.isValid())
                shortest = qMin(shortest, time.elapsed());
            time.start();
            controller.answer(withCrc("01 83 02"));
        }
        QCOMPARE(runtime.readLine(), QString("refused: 5,1,100,D"));
        QVERIFY(qMin(shortest, time.elapsed()) < TIMEOUT);
        QCOMPARE(runtime.exitCode(), 0);
    }

    void faultsAreSurvived_data()
    {
        QTest::addColumn<QString>("fault");
        for (const char* const fault : {"silence", "corrupt", "truncate", "extra-before",
                                        "extra-after", "duplicate", "exception"})
            QTest::newRow(fault) << QString(fault);
    }

    void faultsAreSurvived()
    {
        QFETCH(QString, fault);
        KxsimProcess simulator({"--still", "--set", "D100=1234", "--fault", fault + ":0.3"});
        QVERIFY(!simulator.portName().isEmpty());
        RuntimeProcess runtime(simulator.portName(), {"100"});
        QTRY_VERIFY_WITH_TIMEOUT(!simulator.ask("faults").contains(fault + "=0"), PATIENCE);
        simulator.tell("set D100=65535");
        QVERIFY(runtime.waitForLine("D100 = 65535"));
    }
};

QTEST_GUILESS_MAIN(MinimalRuntimeTest)
#include "tst_minimal_runtime.moc"
