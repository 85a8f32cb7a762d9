// Simulated controllers inside a program, as a host meets them on the line.

#include "kxsim/service/simulated_line.h"
#include "support/driver_fixture.h"
#include "tools/kxsim/modbus_master.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

#include <poll.h>

using kxsim::SimulatedLine;
using kxsim::Simulation;

namespace
{

kx::Assignment assignment(const char* text)
{
    kx::Assignment parsed;
    QString error;
    if (!kx::parseAssignment(QString::fromLatin1(text), &parsed, &error))
        qFatal("%s", qPrintable(error));
    return parsed;
}

/// A line with D100=1234 that does not move.
std::unique_ptr<SimulatedLine> stillLine(const QList<int>& stations = {1})
{
    Simulation simulation;
    simulation.stations = stations;
    simulation.presets << assignment("D100=1234");
    simulation.moves = false;
    QString error;
    return SimulatedLine::start(simulation, &error);
}

const char* const READ_D100 = "01 03 0064 0001";
const char* const D100_IS_1234 = "01 03 02 04D2";
const int ATTEMPTS = 5;

} // namespace

class SimulatedLineTest : public QObject
{
    Q_OBJECT

private slots:
    void presetsAreRead();
    void valuesMoveUnlessHeld_data();
    void valuesMoveUnlessHeld();
    void commandsAndHostShareTheMemory();
    void aPresetForAStationNotSimulatedIsRefused();
    void requestsToAnotherStationGetNoReply();
    void aStationAddedLaterAnswers();
    void whatMovesGoesOnInAStationAddedLater();
    void aHostMayCloseAndComeBack();
    void aRequestInTwoPiecesIsAnswered();
    void aCutRequestIsForgottenAfterSilence();
    void aRequestRightAfterAnotherStationsReplyIsAnswered();
    void aHostThatDoesNotReadHoldsNothingUp();
    void aHostNeedNotSetUpTheTerminal();
    void twoLinesAreApart();
    void destructionEndsTheLine();
};

void SimulatedLineTest::presetsAreRead()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    QCOMPARE(master.registers(100, 2), QList<int>({1234, 0}));
}

void SimulatedLineTest::valuesMoveUnlessHeld_data()
{
    QTest::addColumn<bool>("moves");
    QTest::newRow("moving") << true;
    QTest::newRow("held") << false;
}

void SimulatedLineTest::valuesMoveUnlessHeld()
{
    QFETCH(bool, moves);
    Simulation simulation;
    simulation.moves = moves;
    simulation.stations = {1, 2};
    QString error;
    const auto line = SimulatedLine::start(simulation, &error);
    ModbusMaster master(line->portName());
    for (const int station : {1, 2}) {
        master.setStation(station);
        const int before = master.registers(0, 1).value(0, -1);
        QTest::qWait(350);
        const int after = master.registers(0, 1).value(0, -1);
        // 3 or 4 steps of 100 ms, more on a loaded machine.
        QVERIFY2(moves ? after >= before + 3 : after == before, qPrintable(master.error()));
    }
}

void SimulatedLineTest::commandsAndHostShareTheMemory()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    QCOMPARE(line->command(QStringLiteral("set M5=1")), QString());
    QCOMPARE(master.coils(2005, 1), QList<int>({1}));
    QVERIFY(master.writeRegister(101, 77));
    QCOMPARE(line->command(QStringLiteral("get D100:2")), QStringLiteral("D100=1234,77"));
}

void SimulatedLineTest::aPresetForAStationNotSimulatedIsRefused()
{
    Simulation simulation;
    simulation.presets << assignment("D1@2=5");
    QString error;
    QVERIFY(!SimulatedLine::start(simulation, &error));
    QVERIFY2(error.contains(QStringLiteral("station 2")), qPrintable(error));
}

void SimulatedLineTest::requestsToAnotherStationGetNoReply()
{
    const auto line = stillLine({1, 3});
    ModbusMaster master(line->portName());
    for (int repeat = 0; repeat < 2; ++repeat) {
        master.send(withCrc("02 03 0064 0001"));
        master.send(withCrc(READ_D100));
        QCOMPARE(master.received(7), withCrc(D100_IS_1234));
    }
    master.setStation(3);
    QCOMPARE(master.registers(100, 1), QList<int>({1234}));
    master.setStation(2);
    QCOMPARE(master.registers(100, 1), QList<int>());
    QVERIFY2(master.error().contains(QStringLiteral("timed out")), qPrintable(master.error()));
}

void SimulatedLineTest::aStationAddedLaterAnswers()
{
    Simulation simulation;
    simulation.presets << assignment("D100=1234") << assignment("D101@1=5");
    simulation.waves << kxsim::Wave();
    QString error;
    QVERIFY(kxsim::parseWave(QStringLiteral("D102=7..7/1s"), &simulation.waves.last(), &error));
    simulation.moves = false;
    const auto line = SimulatedLine::start(simulation, &error);
    ModbusMaster master(line->portName());
    QVERIFY(master.writeRegister(100, 77));
    line->addStation(9);
    master.setStation(9);
    QCOMPARE(master.registers(100, 3), QList<int>({1234, 0, 7}));
    QVERIFY(master.writeRegister(100, 78));
    line->addStation(9); // is there
    QCOMPARE(master.registers(100, 3), QList<int>({78, 0, 7}));
    master.setStation(1);
    QCOMPARE(master.registers(100, 3), QList<int>({77, 5, 7}));
}

void SimulatedLineTest::whatMovesGoesOnInAStationAddedLater()
{
    Simulation simulation;
    simulation.timers << kxsim::PresetContact();
    QString error;
    QVERIFY(kxsim::parseTimer(QStringLiteral("T5=1"), &simulation.timers.last(), &error));
    const auto line = SimulatedLine::start(simulation, &error);
    ModbusMaster master(line->portName());
    QTRY_VERIFY(master.registers(0, 1).value(0) >= 3); // D0 has counted that far
    line->addStation(9);
    master.setStation(9);
    QVERIFY(master.registers(0, 1).value(0) >= 3);
    QTRY_COMPARE(line->command(QStringLiteral("get T5@9")), QStringLiteral("T5@9=1"));
}

void SimulatedLineTest::aHostMayCloseAndComeBack()
{
    const auto line = stillLine();
    for (int opening = 0; opening < 3; ++opening) {
        ModbusMaster master(line->portName());
        QCOMPARE(master.registers(100, 1), QList<int>({1234}));
    }
}

void SimulatedLineTest::aRequestInTwoPiecesIsAnswered()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    const QByteArray request = withCrc(READ_D100);
    QByteArray reply;
    // A machine that stands still in between makes two cut requests of it.
    for (int attempt = 0; attempt < ATTEMPTS && reply.isEmpty(); ++attempt) {
        master.send(request.left(3));
        QTest::qSleep(5);
        master.send(request.mid(3));
        reply = master.received(7);
    }
    QCOMPARE(reply, withCrc(D100_IS_1234));
}

void SimulatedLineTest::aCutRequestIsForgottenAfterSilence()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    // The beginning of a write of 123 registers, which would swallow what follows.
    master.send(bytes("01 10 0064 007B F6 0000"));
    QByteArray reply;
    // A simulator that stands still meanwhile hears both at once, and no silence yet.
    for (int attempt = 0; attempt < ATTEMPTS && reply.isEmpty(); ++attempt) {
        QTest::qSleep(200);
        master.send(withCrc(READ_D100));
        reply = master.received(7);
    }
    QCOMPARE(reply, withCrc(D100_IS_1234));
}

void SimulatedLineTest::aRequestRightAfterAnotherStationsReplyIsAnswered()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    master.send(withCrc("09 03 0064 0002") + withCrc("09 03 04 0102 0304") + withCrc(READ_D100));
    QCOMPARE(master.received(7), withCrc(D100_IS_1234));
}

void SimulatedLineTest::aHostThatDoesNotReadHoldsNothingUp()
{
    const auto line = stillLine();
    ModbusMaster master(line->portName());
    // 200 replies of 255 bytes are more than a terminal holds back.
    for (int request = 0; request < 200; ++request)
        master.send(withCrc("01 03 0000 007D"));
    master.send(withCrc("01 06 0005 0009"));
    QTRY_COMPARE(line->command(QStringLiteral("get D5")), QStringLiteral("D5=9"));
}

void SimulatedLineTest::aHostNeedNotSetUpTheTerminal()
{
    const auto line = stillLine();
    line->command(QStringLiteral("set D10=0x0D0A"));
    QFile host(line->portName());
    QVERIFY(host.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    // Bytes that a terminal for people would echo, change or wait after.
    QCOMPARE(host.write(withCrc("01 03 000A 0001")), qint64(8));
    pollfd reply = {host.handle(), POLLIN, 0};
    QCOMPARE(poll(&reply, 1, 1000), 1);
    QCOMPARE(host.read(7), withCrc("01 03 02 0D0A"));
}

void SimulatedLineTest::twoLinesAreApart()
{
    const auto first = stillLine();
    const auto second = stillLine();
    first->command(QStringLiteral("set D100=1"));
    ModbusMaster master(second->portName());
    QCOMPARE(master.registers(100, 1), QList<int>({1234}));
}

void SimulatedLineTest::destructionEndsTheLine()
{
    auto line = stillLine();
    const QString port = line->portName();
    QVERIFY(QFile::exists(port));
    line.reset();
    QVERIFY(!QFile::exists(port));
}

QTEST_GUILESS_MAIN(SimulatedLineTest)

#include "tst_simulated_line.moc"
