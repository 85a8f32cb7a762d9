// `kxhost raw` as a process, against a simulated controller on a pseudo-terminal.

#include "kxsim/service/simulated_line.h"
#include "tools/kxhost/commands/command_process.h"

#include <QtTest/QTest>

using namespace kx;

class RawCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aReadIsDecoded();
    void aWriteIsCarriedOut();
    void exitCodesAndRows_data();
    void exitCodesAndRows();
    void severalTimes();
    void asJson();
    void wrongUsageIsOneLine_data();
    void wrongUsageIsOneLine();
    void aMissingPortIsNamed();

private:
    CommandResult raw(const QString& arguments)
    {
        return runCommand(QStringList{"raw", "--port", m_line->portName()} + arguments.split(' '));
    }

    std::unique_ptr<kxsim::SimulatedLine> m_line;
};

void RawCommandTest::initTestCase()
{
    kxsim::Simulation simulation;
    simulation.stations = {1};
    QString error;
    m_line = kxsim::SimulatedLine::start(simulation, &error);
    QVERIFY2(m_line, qPrintable(error));
}

void RawCommandTest::aReadIsDecoded()
{
    const CommandResult result = raw("01 03 01 90 00 02"); // registers 400 and 401
    QCOMPARE(result.output.mid(0, 3),
             (QStringList{"request  01 03 01 90 00 02 C5 DA", "reply    01 03 04 00 00 00 00 FA 33",
                          "         station 1, function 3 (read holding registers), registers 0 0; "
                          "CRC right"}));
    QCOMPARE(static_cast<int>(result.output.size()), 4);
    QVERIFY(result.output.last().startsWith("time     "));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void RawCommandTest::aWriteIsCarriedOut()
{
    QCOMPARE(raw("0x01,0x06,0x01F4,0x0539").exitCode, 0); // register 500 gets 1337
    QVERIFY(raw("01 03 01F4 0001").output.value(2).contains("registers 1337; CRC right"));
}

void RawCommandTest::exitCodesAndRows_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("row"); // the last but the time
    QTest::addColumn<int>("exitCode");
    QTest::newRow("a refusal") << "01 11"
                               << "         station 1, function 17 (report server ID), exception 1 "
                                  "(illegal function); CRC "
                                  "right"
                               << 1;
    QTest::newRow("nobody") << "09 03 00 00 00 01 --timeout 50"
                            << "reply    none until the time-out" << 1;
    QTest::newRow("a wrong CRC") << "--no-crc 01 03 00 00 00 01 84 0B --timeout 50"
                                 << "reply    none until the time-out" << 1;
    QTest::newRow("its own CRC") << "--no-crc 01 03 01 90 00 01 85 DB"
                                 << "         station 1, function 3 (read holding registers), "
                                    "registers 0; CRC right"
                                 << 0;
    QTest::newRow("a broadcast") << "00 06 01 90 00 00"
                                 << "reply    none; nobody answers a broadcast" << 0;
}

void RawCommandTest::exitCodesAndRows()
{
    QFETCH(QString, arguments);
    CommandResult result = raw(arguments);
    if (result.output.value(result.output.size() - 1).startsWith("time "))
        result.output.removeLast();
    QTEST(result.output.value(result.output.size() - 1), "row");
    QTEST(result.exitCode, "exitCode");
    QCOMPARE(result.errors, QStringList());
}

void RawCommandTest::severalTimes()
{
    const CommandResult result = raw("01 03 00 00 00 01 -n 3");
    QCOMPARE(static_cast<int>(result.output.filter("request  01 03").size()), 3);
    QCOMPARE(result.output.last(), QStringLiteral("3 of 3 exchanges good"));
    QCOMPARE(result.exitCode, 0);
}

void RawCommandTest::asJson()
{
    const CommandResult result = raw("01 03 01 90 00 01 --json --count 2");
    QCOMPARE(static_cast<int>(result.output.size()), 2);
    QVERIFY2(result.output.first().contains(R"("outcome":"good","registers":[0])"),
             qPrintable(result.output.first()));
    QCOMPARE(result.exitCode, 0);
}

void RawCommandTest::wrongUsageIsOneLine_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("line");
    QTest::newRow("no bytes") << "raw --simulate"
                              << "nothing to send; name bytes such as 01 03 00 00 00 01";
    QTest::newRow("no line") << "raw 01 03"
                             << "no line; name one with --port or --tcp, or use --simulate";
    QTest::newRow("no byte") << "raw 01 xx --simulate"
                             << "xx: must be bytes in hexadecimal, such as 01 03 00 00 00 01";
    QTest::newRow("a station alone")
        << "raw 01 --simulate"
        << "a frame begins with station and function; --no-crc sends less";
    QTest::newRow("too long") << "raw --simulate " + QString(510, '0')
                              << "a frame has at most 256 bytes with its CRC, and this one 257";
    QTest::newRow("retries") << "raw 01 03 --simulate --retries 1"
                             << "--retries: a raw frame has no use for it";
    QTest::newRow("no time") << "raw 01 03 --simulate --count 0"
                             << "--count 0: must be a whole number from 1 to 1000000";
    QTest::newRow("Modbus TCP without a CRC") << "raw 01 03 --tcp gateway --protocol tcp --no-crc"
                                              << "--no-crc: frames of Modbus TCP have no CRC";
}

void RawCommandTest::wrongUsageIsOneLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, line);
    const CommandResult result = runCommand(arguments.split(' '));
    QCOMPARE(result.errors, QStringList{"kxhost: " + line});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.exitCode, 2);
}

void RawCommandTest::aMissingPortIsNamed()
{
    const CommandResult result = runCommand("raw 01 03 00 00 00 01 --port /dev/no-such-port");
    QCOMPARE(result.errors, QStringList{"kxhost: /dev/no-such-port: cannot open the port: No such "
                                        "file or directory"});
    QCOMPARE(result.exitCode, 3);
}

QTEST_GUILESS_MAIN(RawCommandTest)
#include "tst_raw_command.moc"
