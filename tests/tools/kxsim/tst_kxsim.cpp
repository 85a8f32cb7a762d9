// kxsim as a process: a host reads and writes all register types over its line.

#include "kxsim_process.h"
#include "modbus_master.h"
#include "support/driver_fixture.h"
#include "support/process_signal.h"

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

class KxsimTest : public QObject
{
    Q_OBJECT

private slots:
    void allThirteenTypesAreRead();
    void allWriteFunctionsReachTheMemory();
    void outsideTheMapThereIsAnException();
    void stationsOfOneLineHaveTheirOwnMemory();
    void presetsStayStillWhileOthersMove();
    void wavesMoveWhateverIsStill();
    void aTimerAndACounterRun();
    void commandsAnswerAndSurviveTheirEnd();
    void theLinkLastsAsLongAsTheProgram();
    void faultsAreCounted();
    void aRefusedOrUnheardWriteChangesNothing_data();
    void aRefusedOrUnheardWriteChangesNothing();
    void aDelayedReplyComesLate();
    void aClosedLineIsFoundAgainByItsLink();
    void theLogShowsRequestsAndReplies();
    void signalsEndItCleanly_data();
    void signalsEndItCleanly();
    void nohupLetsItOutliveItsTerminal();
    void withoutStreamsNothingIsPrintedOnTheLine();
    void aRunningOneKeepsItsLink();
    void oneThatDidNotStartIsNotSignalled();
    void aGivenPortIsServed();
};

void KxsimTest::allThirteenTypesAreRead()
{
    KxsimProcess kxsim({"--still",
                        "--set",
                        "X17=1",
                        "--set",
                        "Y377=1",
                        "--set",
                        "M2047=1,1",
                        "--set",
                        "SM255=1,1",
                        "--set",
                        "S1023=1",
                        "--set",
                        "T255=1",
                        "--set",
                        "C9=1",
                        "--set",
                        "D7999=1234",
                        "--set",
                        "SD255=255,256",
                        "--set",
                        "CV199=-1",
                        "--set",
                        "32CV255=0x12345678",
                        "--set",
                        "TV255=25",
                        "--set",
                        "Z15=15"});
    ModbusMaster master(kxsim.portName());
    QVERIFY2(master.isOpen(), qPrintable(master.error()));
    QCOMPARE(master.coils(1214, 3), QList<int>({0, 1, 0}));            // X17 is the 16th input
    QCOMPARE(master.coils(254, 2), QList<int>({0, 1}));                // Y377
    QCOMPARE(master.coils(4046, 2), QList<int>({0, 1}));               // M2047
    QCOMPARE(master.coils(12000, 2), QList<int>({1, 0}));              // M2048
    QCOMPARE(master.coils(4654, 2), QList<int>({0, 1}));               // SM255
    QCOMPARE(master.coils(30000, 2), QList<int>({1, 0}));              // SM256
    QCOMPARE(master.coils(7022, 2), QList<int>({0, 1}));               // S1023
    QCOMPARE(master.coils(8254, 2), QList<int>({0, 1}));               // T255
    QCOMPARE(master.coils(9208, 3), QList<int>({0, 1, 0}));            // C9
    QCOMPARE(master.registers(7998, 2), QList<int>({0, 1234}));        // D7999
    QCOMPARE(master.registers(8254, 2), QList<int>({0, 255}));         // SD255
    QCOMPARE(master.registers(12000, 2), QList<int>({256, 0}));        // SD256
    QCOMPARE(master.registers(9699, 1), QList<int>({65535}));          // CV199
    QCOMPARE(master.registers(9810, 2), QList<int>({0x1234, 0x5678})); // 32CV255
    QCOMPARE(master.registers(9254, 2), QList<int>({0, 25}));          // TV255
    QCOMPARE(master.registers(8514, 2), QList<int>({0, 15}));          // Z15
}

void KxsimTest::allWriteFunctionsReachTheMemory()
{
    KxsimProcess kxsim({"--still"});
    ModbusMaster master(kxsim.portName());
    QVERIFY2(master.writeCoil(12000, true), qPrintable(master.error()));
    QCOMPARE(kxsim.ask("get M2047:3"), QStringLiteral("M2047=0,1,0"));
    QVERIFY2(master.writeRegister(8515, 0xABCD), qPrintable(master.error()));
    QCOMPARE(kxsim.ask("get Z14:2"), QStringLiteral("Z14=0,43981"));
    QVERIFY2(master.writeCoils(8, {1, 0, 1, 1, 0, 0, 0, 1, 1}), qPrintable(master.error()));
    QCOMPARE(kxsim.ask("get Y10:10"), QStringLiteral("Y10=1,0,1,1,0,0,0,1,1,0"));
    QVERIFY2(master.writeRegisters(9700, {0x0001, 0x0000, 0, 7}), qPrintable(master.error()));
    QCOMPARE(kxsim.ask("get 32CV200:3"), QStringLiteral("32CV200=65536,7,0"));
}

void KxsimTest::outsideTheMapThereIsAnException()
{
    KxsimProcess kxsim;
    ModbusMaster master(kxsim.portName());
    const QString illegalAddress = QStringLiteral("Illegal data address");
    QCOMPARE(master.registers(8515, 2), QList<int>());
    QCOMPARE(master.error(), illegalAddress);
    QCOMPARE(master.coils(256, 1), QList<int>());
    QCOMPARE(master.error(), illegalAddress);
    QVERIFY(!master.writeRegister(65535, 1));
    QCOMPARE(master.error(), illegalAddress);
    QCOMPARE(master.registers(8515, 1), QList<int>({0}));
}

void KxsimTest::stationsOfOneLineHaveTheirOwnMemory()
{
    KxsimProcess kxsim(
        {"--still", "-a", "1", "--station", "17", "--set", "D5=10", "--set", "D5@17=20"});
    ModbusMaster master(kxsim.portName());
    QCOMPARE(master.registers(5, 1), QList<int>({10}));
    master.setStation(17);
    QCOMPARE(master.registers(5, 1), QList<int>({20}));
    QVERIFY(master.writeRegister(5, 21));
    QCOMPARE(kxsim.ask("get D5@17"), QStringLiteral("D5@17=21"));
    QCOMPARE(kxsim.ask("get D5"), QStringLiteral("D5=10"));
}

void KxsimTest::presetsStayStillWhileOthersMove()
{
    KxsimProcess kxsim({"--set", "D0=5"});
    ModbusMaster master(kxsim.portName());
    const QList<int> before = master.registers(9700, 2);
    QTest::qWait(500);
    QVERIFY(master.registers(9700, 2) != before);
    QCOMPARE(master.registers(0, 1), QList<int>({5}));
}

void KxsimTest::wavesMoveWhateverIsStill()
{
    // One step in 10 ms, for ten minutes.
    KxsimProcess kxsim({"--still", "--wave", "D10=0..59999/10min", "--wave", "X17@1=1..1/1s"});
    ModbusMaster master(kxsim.portName());
    const int before = master.registers(10, 1).value(0, -1);
    QTest::qWait(300);
    const int after = master.registers(10, 1).value(0, -1);
    QVERIFY2(after >= before + 30, qPrintable(master.error()));
    QVERIFY(kxsim.ask("get D10").section('=', 1).toInt() >= after);
    QCOMPARE(master.coils(1214, 3), QList<int>({0, 1, 0}));
    kxsim.tell("set D10=7");
    QCOMPARE(kxsim.ask("get D10"), QStringLiteral("D10=7"));
    QCOMPARE(master.registers(10, 1), QList<int>({7}));
}

void KxsimTest::aTimerAndACounterRun()
{
    KxsimProcess kxsim({"--still", "--timer", "T5=3/M5", "--counter", "C200=2/M5"});
    ModbusMaster master(kxsim.portName());
    QVERIFY(master.writeCoil(2005, true));                   // M5
    QTRY_COMPARE(master.coils(8005, 1), QList<int>({1}));    // T5
    QCOMPARE(master.registers(9005, 1), QList<int>({3}));    // TV5
    QCOMPARE(master.registers(9700, 2), QList<int>({0, 1})); // 32CV200
    QVERIFY(master.writeCoil(2005, false));
    QTRY_COMPARE(master.registers(9005, 1), QList<int>({0}));
    QVERIFY(master.writeCoil(2005, true));
    QTRY_COMPARE(kxsim.ask("get C200"), QStringLiteral("C200=1"));
    QVERIFY(master.writeRegisters(9700, {0, 0}));
    QTRY_COMPARE(master.coils(9400, 1), QList<int>({0})); // C200
}

void KxsimTest::commandsAnswerAndSurviveTheirEnd()
{
    KxsimProcess kxsim({"--still"});
    kxsim.tell("set D100=1,2,3,4");
    QCOMPARE(kxsim.ask("get D100:4"), QStringLiteral("D100=1,2,3,4"));
    QCOMPARE(kxsim.ask("hello"),
             QStringLiteral("error: 'hello' is not a command; write get D100:4, "
                            "set D100=5 or faults"));
    const QString withZero = QLatin1String("set D101=5") + QChar(0) + QLatin1Char('7');
    QCOMPARE(kxsim.ask(withZero),
             QStringLiteral("error: D101=5\uFFFD7: '5\uFFFD7' is not a decimal or 0x hexadecimal "
                            "number"));
    QCOMPARE(kxsim.lastAnswer("get D101"), QStringLiteral("D101=2"));
    QTest::qWait(200);
    ModbusMaster master(kxsim.portName());
    QCOMPARE(master.registers(100, 4), QList<int>({1, 2, 3, 4}));
}

void KxsimTest::theLinkLastsAsLongAsTheProgram()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("controller");
    {
        KxsimProcess killed({"--symlink", link});
        killed.exitCodeAfter(SIGKILL);
    }
    QVERIFY(QFileInfo(link).isSymLink());
    // The stale link is replaced.
    KxsimProcess kxsim({"--symlink", link, "--set", "D1=3"});
    QCOMPARE(QFileInfo(link).symLinkTarget(), kxsim.portName());
    {
        ModbusMaster master(link);
        QCOMPARE(master.registers(1, 1), QList<int>({3}));
    }
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
}

void KxsimTest::faultsAreCounted()
{
    KxsimProcess kxsim({"--still", "--set", "D1=3", "--fault", "echo:1"});
    {
        ModbusMaster master(kxsim.portName());
        master.send(withCrc("01 03 0001 0001"));
        QCOMPARE(master.received(15), withCrc("01 03 0001 0001") + withCrc("01 03 02 0003"));
        // A broadcast has no reply that a fault could spoil.
        master.send(withCrc("00 06 0001 0004"));
    }
    QTRY_COMPARE(kxsim.ask("get D1"), QStringLiteral("D1=4"));
    const QString counts =
        QStringLiteral("requests=1 none=0 deaf=0 silence=0 delay=0 corrupt=0 truncate=0 "
                       "extra-before=0 extra-after=0 duplicate=0 other-station=0 "
                       "exception=0 echo=1 close=0");
    QCOMPARE(kxsim.ask("faults"), counts);
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    QCOMPARE(kxsim.output(), QStringLiteral("kxsim: %1\n").arg(counts));
}

void KxsimTest::aRefusedOrUnheardWriteChangesNothing_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("isCarriedOut");
    QTest::newRow("unheard") << "deaf:1" << false;
    QTest::newRow("refused") << "exception:1" << false;
    QTest::newRow("reply lost") << "silence:1" << true;
}

void KxsimTest::aRefusedOrUnheardWriteChangesNothing()
{
    QFETCH(QString, fault);
    QFETCH(bool, isCarriedOut);
    KxsimProcess kxsim({"--still", "--fault", fault});
    ModbusMaster master(kxsim.portName());
    QVERIFY(!master.writeRegister(5, 9));
    QCOMPARE(kxsim.ask("get D5"), isCarriedOut ? QStringLiteral("D5=9") : QStringLiteral("D5=0"));
}

void KxsimTest::aDelayedReplyComesLate()
{
    KxsimProcess kxsim({"--still", "--fault", "delay:1", "--fault-delay", "300"});
    ModbusMaster master(kxsim.portName());
    QElapsedTimer sent;
    sent.start();
    master.send(withCrc("01 03 0001 0001"));
    QCOMPARE(master.received(7), withCrc("01 03 02 0000"));
    QVERIFY(sent.elapsed() >= 300);
}

void KxsimTest::aClosedLineIsFoundAgainByItsLink()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("controller");
    KxsimProcess kxsim({"--still", "--symlink", link, "--fault", "close:1"});
    const QString first = QFileInfo(link).symLinkTarget();
    {
        ModbusMaster master(link);
        master.send(withCrc("01 06 0005 0009"));
        QTRY_VERIFY(QFileInfo(link).symLinkTarget() != first);
    }
    ModbusMaster master(link);
    QVERIFY(master.isOpen());
    master.send(withCrc("01 06 0006 0009"));
    QTRY_COMPARE(kxsim.ask("get D5:2"), QStringLiteral("D5=9,9"));
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
}

void KxsimTest::theLogShowsRequestsAndReplies()
{
    KxsimProcess kxsim({"--still", "--log"});
    {
        ModbusMaster master(kxsim.portName());
        QCOMPARE(master.registers(0, 10).size(), 10);
        QVERIFY(master.registers(65535, 1).isEmpty());
    }
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    const QStringList lines = kxsim.errorOutput().split('\n');
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.at(0), QStringLiteral("request 01 03 00 00 00 0a c5 cd"));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("reply   01 03 14 00 00")),
             qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).startsWith(QStringLiteral("request 01 03 ff ff 00 01")),
             qPrintable(lines.at(2)));
    QCOMPARE(lines.at(3), QStringLiteral("reply   01 83 02 c0 f1"));
}

void KxsimTest::signalsEndItCleanly_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("termination") << SIGTERM;
    QTest::newRow("the terminal is closed") << SIGHUP;
}

void KxsimTest::signalsEndItCleanly()
{
    QFETCH(int, signal);
    const QTemporaryDir folder;
    const QString link = folder.filePath("controller");
    KxsimProcess kxsim({"--symlink", link});
    QVERIFY(!kxsim.portName().isEmpty());
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(kxsim.exitCodeAfter(signal), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(kxsim.errorOutput(), QString());
    QCOMPARE(kxsim.output(), QString()); // it was asked for no faults
}

void KxsimTest::nohupLetsItOutliveItsTerminal()
{
    QProcess kxsim;
    kxsim.start("nohup", {KXSIM_PROGRAM, "--still"});
    QTRY_VERIFY(kxsim.canReadLine());
    kxsim.readLine();
    QVERIFY(signalProcess(kxsim.processId(), SIGHUP));
    kxsim.write("get D1\n");
    QTRY_VERIFY(kxsim.canReadLine());
    QCOMPARE(kxsim.readLine(), QByteArray("D1=0\n"));
    kxsim.kill();
    QVERIFY(kxsim.waitForFinished());
}

// The pseudo-terminal must not get the number of a closed stream.
void KxsimTest::withoutStreamsNothingIsPrintedOnTheLine()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("controller");
    QProcess kxsim;
    kxsim.start("/bin/sh", {"-c", "exec \"$0\" --set D1=3 --symlink \"$1\" <&- >&- 2>&-",
                            KXSIM_PROGRAM, link});
    QTRY_VERIFY(QFileInfo(link).isSymLink());
    ModbusMaster master(link);
    master.send(withCrc("01 03 0001 0001"));
    QCOMPARE(master.received(7), withCrc("01 03 02 0003"));
    kxsim.terminate();
    QVERIFY(kxsim.waitForFinished(5000));
    QCOMPARE(kxsim.exitCode(), 0);
}

void KxsimTest::aRunningOneKeepsItsLink()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath("controller");
    KxsimProcess running({"--symlink", link});
    QProcess second;
    second.start(KXSIM_PROGRAM, {"--symlink", link});
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 3);
    QCOMPARE(second.readAllStandardOutput(), QByteArray());
    const QString error = QString::fromUtf8(second.readAllStandardError());
    QVERIFY2(error.startsWith("kxsim: --symlink " + link + ": a running kxsim (process "),
             qPrintable(error));
    QCOMPARE(QFileInfo(link).symLinkTarget(), running.portName());
}

// Its process number is 0, to which a signal would end the test run and its caller.
void KxsimTest::oneThatDidNotStartIsNotSignalled()
{
    KxsimProcess kxsim({"--port", "/dev/null"});
    QCOMPARE(kxsim.portName(), QString());
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 3);
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 3);
}

void KxsimTest::aGivenPortIsServed()
{
    // The test holds the other end of the pair and speaks through it.
    const int otherEnd = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(otherEnd >= 0 && grantpt(otherEnd) == 0 && unlockpt(otherEnd) == 0);
    const QString port = QString::fromLocal8Bit(ptsname(otherEnd));
    KxsimProcess kxsim({"-p", port, "-b", "9600", "--parity", "even", "--set", "D100=1234"});
    QCOMPARE(kxsim.portName(), port);
    // Station 1 reads D100, and its reply: two bytes of data, 1234.
    const QByteArray request = QByteArray::fromHex("01030064 0001 c5d5");
    const QByteArray expected = QByteArray::fromHex("010302 04d2 3ad9");
    QCOMPARE(write(otherEnd, request.constData(), 8), ssize_t(8));
    QByteArray reply(7, '\0');
    QCOMPARE(read(otherEnd, reply.data(), 7), ssize_t(7));
    QCOMPARE(reply.toHex(), expected.toHex());
    // The line is lost when the other end goes.
    close(otherEnd);
    QCOMPARE(kxsim.exitCodeAfter(0), 3);
    QCOMPARE(kxsim.errorOutput(), QStringLiteral("kxsim: %1: the line was lost\n").arg(port));
}

QTEST_GUILESS_MAIN(KxsimTest)

#include "tst_kxsim.moc"
