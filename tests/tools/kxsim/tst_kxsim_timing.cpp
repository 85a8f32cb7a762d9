// kxsim as a process: how long its replies take.

#include "kxsim_process.h"
#include "modbus_master.h"
#include "support/driver_fixture.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <algorithm>
#include <csignal>

namespace
{

const int TRIES = 10;

/// Milliseconds from a request of 8 bytes to `count` bytes of its reply, the quickest of
/// some tries: a busy machine makes single ones longer, none makes one shorter.
double quickest(ModbusMaster* master, int count)
{
    double shortest = 1e9;
    for (int tries = 0; tries < TRIES; ++tries) {
        QElapsedTimer timer;
        timer.start();
        master->send(withCrc("01 03 0064 000A")); // D100 to D109
        const QByteArray begun = master->received(count);
        shortest = std::min(shortest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
        const QByteArray rest = master->received(25 - static_cast<int>(begun.size()));
        if (begun + rest != withCrc("01 03 14" + QByteArray(40, '0')))
            return -1;
    }
    return shortest;
}

} // namespace

class KxsimTimingTest : public QObject
{
    Q_OBJECT

private slots:
    void repliesTakeTheirTime_data();
    void repliesTakeTheirTime();
    void requestsAreCarriedOutWhenTheyHaveArrived();
    void anotherMasterReadsOverASlowLine();
    void aStationComesBackWhenItIsTime();
    void aStationIsGoneForGood();
};

void KxsimTimingTest::repliesTakeTheirTime_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<double>("firstByte"); // milliseconds after the request was handed over
    QTest::addColumn<double>("lastByte");
    QTest::newRow("at once") << QStringList() << 0.0 << 0.0;
    QTest::newRow("turnaround") << QStringList{"--turnaround", "30ms"} << 30.0 << 30.0;
    // 8 bytes of request, 25 of reply: (8 + 1) x 10 / 9600 and (8 + 25) x 10 / 9600
    QTest::newRow("pace") << QStringList{"--pace", "9600"} << 9.375 << 34.375;
    // (8 + 25) x 11 / 19200 = 18.906, and 11 bits for the first byte
    QTest::newRow("turnaround and pace with parity")
        << QStringList{"--turnaround", "7500us", "--pace", "19200,8E1"} << 12.656 << 26.406;
}

void KxsimTimingTest::repliesTakeTheirTime()
{
    QFETCH(QStringList, arguments);
    QFETCH(double, firstByte);
    QFETCH(double, lastByte);
    const double slack = 20; // for a busy machine; bytes that leave together would take longer
    KxsimProcess kxsim(QStringList{"--still"} + arguments);
    ModbusMaster master(kxsim.portName());
    const double first = quickest(&master, 1);
    const double last = quickest(&master, 25);
    QVERIFY2(first >= firstByte && first < firstByte + slack, qPrintable(QString::number(first)));
    QVERIFY2(last >= lastByte && last < lastByte + slack, qPrintable(QString::number(last)));
}

void KxsimTimingTest::requestsAreCarriedOutWhenTheyHaveArrived()
{
    // 8 bytes at 110 baud take 727 ms, longer than the silence that ends a request.
    KxsimProcess kxsim({"--still", "--pace", "110"});
    ModbusMaster master(kxsim.portName());
    QElapsedTimer timer;
    timer.start();
    master.send(withCrc("01 06 0005 0009"));
    while (kxsim.ask("get D5") != QStringLiteral("D5=9") && timer.elapsed() < 5000)
        QTest::qSleep(5);
    QVERIFY2(timer.elapsed() >= 727 && timer.elapsed() < 5000,
             qPrintable(QString::number(timer.elapsed())));
}

// mbpoll is another Modbus master; the numbers are the controller's Modbus numbers.
void KxsimTimingTest::anotherMasterReadsOverASlowLine()
{
    KxsimProcess kxsim(
        {"--still", "--pace", "19200,8E1", "--turnaround", "2..10ms", "--wave", "D10:2=-7..-7/1s"});
    QProcess mbpoll;
    mbpoll.start(QStringLiteral("mbpoll"),
                 {"-m", "rtu", "-a", "1", "-b", "19200", "-P", "even", "-0", "-r", "9", "-c", "4",
                  "-1", "-q", kxsim.portName()});
    QVERIFY2(mbpoll.waitForFinished(10000), qPrintable(mbpoll.errorString()));
    const QString output = QString::fromUtf8(mbpoll.readAllStandardOutput()).simplified();
    QVERIFY2(output.contains(QStringLiteral("[9]: 0 [10]: 65529 (-7) [11]: 65529 (-7) [12]: 0")),
             qPrintable(output));
}

void KxsimTimingTest::aStationComesBackWhenItIsTime()
{
    QElapsedTimer timer;
    timer.start();
    KxsimProcess kxsim({"--still", "--set", "D1=3", "--down", "1@0s..600ms"});
    ModbusMaster master(kxsim.portName());
    QByteArray reply;
    while (reply.size() < 7 && timer.elapsed() < 10000) {
        master.send(withCrc("01 03 0001 0001"));
        reply += master.received(7, 50);
    }
    QVERIFY2(timer.elapsed() >= 600, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(reply.left(7), withCrc("01 03 02 0003"));
}

void KxsimTimingTest::aStationIsGoneForGood()
{
    KxsimProcess kxsim({"-a", "1", "-a", "2", "--still", "--log", "--down", "2@0s.."});
    {
        ModbusMaster master(kxsim.portName());
        master.send(withCrc("02 06 0005 0009"));
        master.send(withCrc("01 06 0005 0009"));
        QCOMPARE(master.received(8), withCrc("01 06 0005 0009"));
    }
    QCOMPARE(kxsim.ask("get D5@2"), QStringLiteral("D5@2=0"));
    QCOMPARE(kxsim.exitCodeAfter(SIGTERM), 0);
    QVERIFY(kxsim.errorOutput().startsWith("ignored 02 06 00 05 00 09"));
}

QTEST_GUILESS_MAIN(KxsimTimingTest)

#include "tst_kxsim_timing.moc"
