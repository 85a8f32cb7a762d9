#include "kxpanel/machine/machine_line.h"

#include "tools/kxpanel/machine_fixture.h"
#include "tools/kxsim/kxsim_process.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kxpanel;

Q_DECLARE_METATYPE(kx::ConnectionOptions)

class MachineLineTest : public QObject
{
    Q_OBJECT

private slots:
    void linesAreNamed_data();
    void linesAreNamed();
    void eachStationIsSimulatedAlike();
    void nothingOfTheDemonstrationIsLeftOut();
    void aLostLineIsOpenedAgainForEver();
    void whoHasThePortIsNamed();
};

void MachineLineTest::linesAreNamed_data()
{
    QTest::addColumn<kx::ConnectionOptions>("options");
    QTest::addColumn<QString>("name");
    QTest::newRow("a serial port") << serialPort("ttyUSB7") << "/dev/ttyUSB7";
    kx::ConnectionOptions gateway = simulated();
    gateway.simulate = false;
    gateway.gateway = {"box", 502};
    QTest::newRow("a gateway") << gateway << "box:502";
    gateway.simulate = true; // goes before what was chosen earlier
    QTest::newRow("simulated") << gateway << "simulated controller";
}

void MachineLineTest::linesAreNamed()
{
    QFETCH(kx::ConnectionOptions, options);
    QFETCH(QString, name);
    QString error;
    const auto line = makeLine(options, &error);
    QVERIFY2(line, qPrintable(error));
    QCOMPARE(line->name, name);
    QVERIFY(!line->connection->isOpen());
    QCOMPARE(line->simulator != nullptr, options.simulate);
}

// What the demonstration shows.
void MachineLineTest::eachStationIsSimulatedAlike()
{
    kx::ConnectionOptions options = simulated();
    options.station = 4; // named by nothing else
    QCOMPARE(simulationOf(options).stations, QList<int>{4});
    options.simulatedStations = {2, 7};
    QString error;
    const auto line = makeLine(options, &error);
    QVERIFY2(line, qPrintable(error));
    for (const char* const station : {"@2", "@7"}) {
        const auto get = [&](const char* address) {
            const QString text = QString(address) + station;
            return line->simulator->command("get " + text).remove(text + '=');
        };
        QCOMPARE(get("D110"), QString("650"));
        QCOMPARE(get("D120:2").section('=', 1), QString("0,16968")); // 50.0
        QCOMPARE(get("M20"), QString("1"));
    }
    QVERIFY(line->simulator->command("get D110@4").startsWith("error"));
}

// A text that cannot be read would be passed over.
void MachineLineTest::nothingOfTheDemonstrationIsLeftOut()
{
    const kxsim::Simulation simulation = simulationOf(simulated());
    QCOMPARE(simulation.stations, QList<int>{1});
    QCOMPARE(simulation.waves.size(), 8);
    QCOMPARE(simulation.presets.size(), 5);
}

void MachineLineTest::aLostLineIsOpenedAgainForEver()
{
    QTemporaryDir folder;
    const QString link = folder.filePath("port");
    auto controller = std::make_unique<KxsimProcess>(QStringList{"--symlink", link});
    QString error;
    const auto line = makeLine(serialPort(link), &error);
    QVERIFY2(line, qPrintable(error));
    int interruptions = 0;
    int failures = 0;
    connect(line->connection.get(), &kx::Connection::interrupted, this, [&] { ++interruptions; });
    connect(line->connection.get(), &kx::Connection::failed, this, [&] { ++failures; });
    line->connection->open();
    QTRY_VERIFY(line->connection->isOpen());
    controller.reset();
    QFile::remove(link);
    QTRY_COMPARE(interruptions, 1);
    QTest::qWait(300); // several tries
    QCOMPARE(failures, 0);
    controller = std::make_unique<KxsimProcess>(QStringList{"--symlink", link});
    QTRY_VERIFY(line->connection->isOpen());
}

/// kxsim, which made it, is none of those who take it away.
void MachineLineTest::whoHasThePortIsNamed()
{
    const KxsimProcess controller;
    const QString port = controller.portName();
    QProcess other;
    other.start("sh", {"-c", "exec 3<>" + port + "; echo open; exec sleep 60"});
    QVERIFY(other.waitForReadyRead());
    const QString program = QStringLiteral("/proc/%1/exe").arg(other.processId());
    QTRY_VERIFY(QFile::symLinkTarget(program).endsWith("/sleep")); // no more sh
    QFile lock("/var/lock/LCK.." + QString(port).mid(5).replace('/', '_'));
    QVERIFY(lock.open(QIODevice::WriteOnly)); // as of a program that takes its turn
    lock.write(QByteArray::number(other.processId()) + "\nsleep\n");
    lock.close();
    Machine machine;
    const MachineLog log(&machine);
    machine.openLine(serialPort(port));
    QTRY_COMPARE(log.states.size(), 2);
    lock.remove();
    QCOMPARE(log.states.last(),
             QString("closed: %1: cannot open the port: Permission error while locking the device; "
                     "in use by sleep (pid %2)")
                 .arg(port)
                 .arg(other.processId()));
    other.kill();
    QVERIFY(other.waitForFinished());
    machine.openLine(serialPort(port)); // is free now
    QTRY_COMPARE(log.states.value(3), QString("open"));
}

QTEST_GUILESS_MAIN(MachineLineTest)
#include "tst_machine_line.moc"
