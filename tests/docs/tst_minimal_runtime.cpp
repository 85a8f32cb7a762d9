// The smallest runtime polls the simulated controller over a pseudo-terminal.

#include "kxsim_process.h"

#include <QtCore/QProcess>
#include <QtTest/QTest>

namespace
{

const int PATIENCE = 30000; // milliseconds

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

    int exitCode()
    {
        m_process.waitForFinished(PATIENCE);
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
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
        RuntimeProcess runtime(simulator.portName(), {"100", "3"});
        QCOMPARE(runtime.readLine(), QString("no answer: 0,1,100,D"));
    }
};

QTEST_GUILESS_MAIN(MinimalRuntimeTest)
#include "tst_minimal_runtime.moc"
