#include "kxhost/options/command_parser.h"
#include "kxhost/options/connection_options.h"

#include <QtTest/QTest>

using namespace kx;

class ConnectionOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void everyOption();
    void gateways_data();
    void gateways();
    void protocols_data();
    void protocols();
    void whatIsToBeFoundOut();
    void simulation();
    void errors_data();
    void errors();

private:
    static bool read(const QByteArray& arguments, ConnectionOptions* options, QString* error);
};

bool ConnectionOptionsTest::read(const QByteArray& arguments, ConnectionOptions* options,
                                 QString* error)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    const QString words = QString::fromLatin1("kxhost ") + QString::fromLatin1(arguments);
    if (!parser.parse(words.split(QLatin1Char(' ')))) {
        *error = parser.errorText();
        return false;
    }
    return parseConnectionOptions(parser, options, error);
}

void ConnectionOptionsTest::defaults()
{
    ConnectionOptions options;
    QString error;
    QVERIFY2(read("--port /dev/ttyUSB0", &options, &error), qPrintable(error));
    QCOMPARE(options.port, QString::fromLatin1("/dev/ttyUSB0"));
    QCOMPARE(options.timing.baud, 9600);
    QCOMPARE(options.timing.bitsPerCharacter(), 10);
    QCOMPARE(options.parity, QSerialPort::NoParity);
    QCOMPARE(options.station, 1);
    QCOMPARE(options.session.retries, 3);
    QCOMPARE(options.session.maxWords, 32);
    QCOMPARE(options.session.exchange.replyTimeout, 1000);
    QCOMPARE(options.session.exchange.settle, -1);
    QCOMPARE(options.session.exchange.quiet, 0);
    QCOMPARE(options.patience, 0);
    QVERIFY(options.faults.chances.isEmpty());
    QCOMPARE(options.simulate, false);
    QCOMPARE(options.frames, false);
    QCOMPARE(options.json, false);
    QVERIFY(options.gateway.host.isEmpty());
    QVERIFY(options.library.isEmpty());
}

void ConnectionOptionsTest::everyOption()
{
    ConnectionOptions options;
    QString error;
    QVERIFY2(read("-p /dev/ttyS1 -b 19200 --parity Odd --data-bits 8 --stop-bits 2 -a 17 -t 250 "
                  "-r 5 --settle 0 --quiet 7 --reopen 3 --max-words 64 --library ./driver.so "
                  "--frames --json",
                  &options, &error),
             qPrintable(error));
    QCOMPARE(options.port, QString::fromLatin1("/dev/ttyS1"));
    QCOMPARE(options.timing.baud, 19200);
    QCOMPARE(options.timing.dataBits, 8);
    QCOMPARE(options.timing.stopBits, 2);
    // Start, 8 data, parity and 2 stop bits.
    QCOMPARE(options.timing.bitsPerCharacter(), 12);
    QCOMPARE(options.parity, QSerialPort::OddParity);
    QCOMPARE(options.station, 17);
    QCOMPARE(options.session.exchange.replyTimeout, 250);
    QCOMPARE(options.session.exchange.settle, 0);
    QCOMPARE(options.session.exchange.quiet, 7);
    QCOMPARE(options.patience, 3000);
    QCOMPARE(options.session.retries, 5);
    QCOMPARE(options.session.maxWords, 64);
    QCOMPARE(options.library, QString::fromLatin1("./driver.so"));
    QCOMPARE(options.frames, true);
    QCOMPARE(options.json, true);
}

void ConnectionOptionsTest::gateways_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
    QTest::newRow("host") << QByteArray("gateway") << text("gateway") << 8888;
    QTest::newRow("IPv6 address and port") << QByteArray("[::1]:502") << text("::1") << 502;
}

void ConnectionOptionsTest::gateways()
{
    QFETCH(QByteArray, text);
    QFETCH(int, port);
    ConnectionOptions options;
    QString error;
    QVERIFY2(read("--tcp " + text, &options, &error), qPrintable(error));
    QTEST(options.gateway.host, "host");
    QCOMPARE(int(options.gateway.port), port);
}

void ConnectionOptionsTest::protocols_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<bool>("isTcp");
    QTest::addColumn<int>("port");
    QTest::addColumn<int>("settle");
    QTest::newRow("Modbus RTU unless asked") << QByteArray("--tcp gateway") << false << 8888 << -1;
    QTest::newRow("Modbus RTU by name")
        << QByteArray("--tcp gateway --protocol rtu") << false << 8888 << -1;
    QTest::newRow("Modbus TCP") << QByteArray("--tcp gateway --protocol tcp") << true << 502 << 0;
    QTest::newRow("Modbus TCP on a port, and settling")
        << QByteArray("--protocol tcp --tcp gateway:1502 --settle 9") << true << 1502 << 9;
}

void ConnectionOptionsTest::protocols()
{
    QFETCH(QByteArray, arguments);
    ConnectionOptions options;
    QString error;
    QVERIFY2(read(arguments, &options, &error), qPrintable(error));
    QTEST(options.protocol == GatewayProtocol::Tcp, "isTcp");
    QTEST(int(options.gateway.port), "port");
    QTEST(options.session.exchange.settle, "settle");
}

void ConnectionOptionsTest::whatIsToBeFoundOut()
{
    QString error;
    ConnectionOptions both;
    both.takesAuto = true;
    QVERIFY2(read("--port x --baud auto --parity auto", &both, &error), qPrintable(error));
    QVERIFY(both.anyBaud && both.anyParity);
    QCOMPARE(both.timing.baud, 9600);
    ConnectionOptions parity;
    parity.takesAuto = true;
    QVERIFY2(read("--port x --baud 19200 --parity auto", &parity, &error), qPrintable(error));
    QVERIFY(!parity.anyBaud && parity.anyParity);
    QCOMPARE(parity.timing.baud, 19200);
    ConnectionOptions neither;
    neither.takesAuto = true;
    QVERIFY2(read("--port x --parity odd", &neither, &error), qPrintable(error));
    QVERIFY(!neither.anyBaud && !neither.anyParity);
    QCOMPARE(neither.parity, QSerialPort::OddParity);
    ConnectionOptions wrong;
    wrong.takesAuto = true;
    QVERIFY(!read("--port x --baud auto --stop-bits auto", &wrong, &error));
    QCOMPARE(error, QString::fromLatin1("--stop-bits auto: must be a whole number from 1 to 2"));
}

void ConnectionOptionsTest::simulation()
{
    ConnectionOptions options;
    QString error;
    QVERIFY2(read("--simulate --station 9 --fault silence:0.5 --fault echo:0.25 --fault-seed 4 "
                  "--fault-delay 70",
                  &options, &error),
             qPrintable(error));
    QCOMPARE(options.faults.chances.size(), 2);
    QVERIFY(options.faults.holds(kxsim::Fault::Echo));
    QCOMPARE(options.faults.seed, 4U);
    QCOMPARE(options.faults.delay, 70);
    QCOMPARE(options.simulate, true);
    QCOMPARE(options.simulatedStations, QList<int>({9}));
}

void ConnectionOptionsTest::errors_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, const char* error) {
        QTest::newRow(name) << QByteArray(arguments) << QString::fromLatin1(error);
    };
    row("no line", "--station 1", "no line; name one with --port or --tcp, or use --simulate");
    row("two lines", "--port /dev/ttyS0 --tcp gateway",
        "only one of --port, --tcp and --simulate can be used");
    row("simulated and real", "--port /dev/ttyS0 --simulate",
        "only one of --port, --tcp and --simulate can be used");
    row("nameless port", "--port=", "no line; name one with --port or --tcp, or use --simulate");
    row("baud 0", "--simulate --baud 0", "--baud 0: must be a whole number from 1 to 4000000");
    row("baud no number", "--simulate --baud fast",
        "--baud fast: must be a whole number from 1 to 4000000");
    row("auto, of a command that needs to know", "--simulate --baud auto",
        "--baud auto: must be a whole number from 1 to 4000000");
    row("auto parity, of a command that needs to know", "--simulate --parity auto",
        "--parity auto: must be none, even or odd");
    row("a percent sign for a number", "--simulate --baud %3%4",
        "--baud %3%4: must be a whole number from 1 to 4000000");
    row("parity", "--simulate --parity mark", "--parity mark: must be none, even or odd");
    row("7 data bits", "--simulate --data-bits 7", "--data-bits 7: Modbus RTU needs 8 data bits");
    row("9 data bits", "--tcp gateway --data-bits 9",
        "--data-bits 9: Modbus RTU needs 8 data bits");
    row("no data bits", "--simulate --data-bits=", "--data-bits : Modbus RTU needs 8 data bits");
    row("stop bits", "--simulate --stop-bits 3",
        "--stop-bits 3: must be a whole number from 1 to 2");
    row("station 0", "--simulate -a 0", "--station 0: must be a whole number from 1 to 247");
    row("a station with a sign", "--simulate -a +5",
        "--station +5: must be a whole number from 1 to 247");
    row("station 248", "--simulate -a 248", "--station 248: must be a whole number from 1 to 247");
    row("time-out 0", "--simulate -t 0",
        "--timeout 0: must be a whole number of milliseconds from 1 to 60000");
    row("settle time", "--simulate --settle -1",
        "--settle -1: must be a whole number of milliseconds from 0 to 60000");
    row("silence", "--simulate --quiet x",
        "--quiet x: must be a whole number of milliseconds from 0 to 60000");
    row("reopening", "--simulate --reopen -1",
        "--reopen -1: must be a whole number of seconds from 0 to 86400");
    row("fault of a real line", "--port /dev/ttyS0 --fault silence:0.1",
        "--fault needs --simulate; kxsim has the same option");
    row("seed of a real line", "--tcp gateway --fault-seed 1",
        "--fault-seed needs --simulate; kxsim has the same option");
    row("fault", "--simulate --fault silence",
        "--fault silence: write KIND:PROBABILITY with a probability from 0 to 1, such as "
        "silence:0.01");
    row("seed", "--simulate --fault-seed x",
        "--fault-seed x: must be a whole number from 0 to 4294967295");
    row("delay", "--simulate --fault-delay 0",
        "--fault-delay 0: must be a whole number of milliseconds from 1 to 60000");
    row("retries 0", "--simulate -r 0", "--retries 0: must be a whole number from 1 to 100");
    row("length 0", "--simulate --max-words 0",
        "--max-words 0: must be a whole number from 1 to 125, or auto");
    row("length 126", "--simulate --max-words 126",
        "--max-words 126: must be a whole number from 1 to 125, or auto");
    row("port of the gateway", "--tcp gateway:99999",
        "--tcp gateway:99999: must be HOST or HOST:PORT");
    row("port 0 of the gateway", "--tcp gateway:0", "--tcp gateway:0: must be HOST or HOST:PORT");
    row("an IPv6 address without brackets", "--tcp ::1",
        "--tcp ::1: must be HOST or HOST:PORT; write an IPv6 address in brackets, [::1]");
    row("no host", "--tcp :502", "--tcp :502: must be HOST or HOST:PORT");
    row("another protocol", "--tcp gateway --protocol udp", "--protocol udp: must be rtu or tcp");
    row("a protocol of a port", "--port /dev/ttyS0 --protocol rtu",
        "--protocol needs --tcp; a serial line carries Modbus RTU");
    row("path behind the host", "--tcp gateway/x", "--tcp gateway/x: must be HOST or HOST:PORT");
}

void ConnectionOptionsTest::errors()
{
    QFETCH(QByteArray, arguments);
    ConnectionOptions options;
    QString error;
    QVERIFY(!read(arguments, &options, &error));
    QTEST(error, "error");
}

QTEST_GUILESS_MAIN(ConnectionOptionsTest)
#include "tst_connection_options.moc"
