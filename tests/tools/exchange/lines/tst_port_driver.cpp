#include "exchange/lines/port_driver.h"
#include "exchange/lines/serial_line.h"
#include "tools/exchange/lines/pseudo_terminal.h"

#include <QtTest/QTest>

#include <cerrno>
#include <linux/serial.h>
#include <sys/ioctl.h>

using namespace kx;

namespace
{

/// A port's driver, as ioctl() shows it.
struct FakePort {
    bool knowsFlags = true;
    bool keepsFlags = true;
    int flags = 0;
    int settings = 0; ///< how often they were set
    bool knowsRs485 = true;
    serial_rs485 rs485 = {};
};

FakePort port;

int fail(int reason)
{
    errno = reason;
    return -1;
}

int callFake(int /*descriptor*/, unsigned long request, void* argument)
{
    auto* const serial = static_cast<serial_struct*>(argument);
    if (request == TIOCGSERIAL && port.knowsFlags) {
        serial->flags = port.flags;
        return 0;
    }
    if (request == TIOCSSERIAL && port.knowsFlags) {
        ++port.settings;
        port.flags = port.keepsFlags ? serial->flags : port.flags;
        return 0;
    }
    if (request == TIOCSRS485 && port.knowsRs485) {
        port.rs485 = *static_cast<serial_rs485*>(argument);
        return 0;
    }
    return fail(ENOTTY);
}

const int LOW_LATENCY = 1 << 13;
const int SPD_HI = 0x10; // another flag

} // namespace

class PortDriverTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { port = FakePort(); }
    void lowLatency_data();
    void lowLatency();
    void rs485_data();
    void rs485();
    void rs485WhereThePortCannot();
    void baudRemarks_data();
    void baudRemarks();
    void aPseudoTerminalRefusesRs485();
    void unusualBaudRatesAreTaken_data();
    void unusualBaudRatesAreTaken();
};

void PortDriverTest::lowLatency_data()
{
    QTest::addColumn<bool>("knowsFlags");
    QTest::addColumn<bool>("keepsFlags");
    QTest::addColumn<int>("before");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<int>("after");
    QTest::addColumn<int>("settings");
    QTest::newRow("switched on, other flags stay")
        << true << true << SPD_HI << true << (SPD_HI | LOW_LATENCY) << 1;
    QTest::newRow("on before: left alone")
        << true << true << LOW_LATENCY << true << LOW_LATENCY << 0;
    QTest::newRow("taken and not kept") << true << false << 0 << false << 0 << 1;
    QTest::newRow("no such flags") << false << true << 0 << false << 0 << 0;
}

void PortDriverTest::lowLatency()
{
    QFETCH(bool, knowsFlags);
    QFETCH(bool, keepsFlags);
    QFETCH(int, before);
    port.knowsFlags = knowsFlags;
    port.keepsFlags = keepsFlags;
    port.flags = before;
    const bool isOn = setLowLatency(3, callFake);
    QTEST(isOn, "isOn");
    QTEST(port.flags, "after");
    QTEST(port.settings, "settings");
}

void PortDriverTest::rs485_data()
{
    QTest::addColumn<bool>("rtsLowToSend");
    QTest::addColumn<int>("flags");
    QTest::newRow("RTS high to send") << false << 3; // enabled, RTS on send
    QTest::newRow("RTS low to send") << true << 5;   // enabled, RTS after send
}

void PortDriverTest::rs485()
{
    QFETCH(bool, rtsLowToSend);
    PortModes modes;
    modes.rtsLowToSend = rtsLowToSend;
    modes.rtsBefore = 2;
    modes.rtsAfter = 7;
    QString error;
    QVERIFY(setRs485(3, modes, &error, callFake));
    QTEST(static_cast<int>(port.rs485.flags), "flags");
    QCOMPARE(static_cast<int>(port.rs485.delay_rts_before_send), 2);
    QCOMPARE(static_cast<int>(port.rs485.delay_rts_after_send), 7);
}

void PortDriverTest::rs485WhereThePortCannot()
{
    port.knowsRs485 = false;
    QString error;
    QVERIFY(!setRs485(3, PortModes(), &error, callFake));
    QCOMPARE(error, QString::fromLatin1("Inappropriate ioctl for device"));
}

void PortDriverTest::baudRemarks_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("taken");
    QTest::addColumn<QString>("remark");
    QTest::newRow("as asked") << 187500 << 187500 << QString();
    QTest::newRow("2 percent less") << 100000 << 98000 << QString();
    QTest::newRow("more than 2 percent less")
        << 100000 << 97999 << QString::fromLatin1("the port took 97999 baud instead of 100000");
    QTest::newRow("more than 2 percent more")
        << 500000 << 510001 << QString::fromLatin1("the port took 510001 baud instead of 500000");
    QTest::newRow("not known") << 9600 << 0 << QString();
}

void PortDriverTest::baudRemarks()
{
    QFETCH(int, asked);
    QFETCH(int, taken);
    QTEST(baudRemark(asked, taken), "remark");
}

void PortDriverTest::aPseudoTerminalRefusesRs485()
{
    const PseudoTerminal controller;
    PortModes modes;
    modes.rs485 = true;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity, modes);
    QStringList errors;
    int opened = 0;
    connect(&line, &Line::failed, this, [&](const QString& error) { errors << error; });
    connect(&line, &Line::opened, this, [&] { ++opened; });
    line.open();
    QCOMPARE(errors, QStringList(controller.name()
                                 + QLatin1String(": the port cannot switch an RS-485 transceiver: "
                                                 "Inappropriate ioctl for device; without --rs485 "
                                                 "an adapter that switches by itself works")));
    QCOMPARE(opened, 0);
    QVERIFY(!line.isOpen());
}

void PortDriverTest::unusualBaudRatesAreTaken_data()
{
    QTest::addColumn<int>("baud");
    for (const int baud : {9600, 187500, 500000, 4000000, 12345})
        QTest::newRow(qPrintable(QString::number(baud))) << baud;
}

void PortDriverTest::unusualBaudRatesAreTaken()
{
    QFETCH(int, baud);
    const PseudoTerminal controller;
    SerialLine line(controller.name(), {baud, 8, 0, 1}, QSerialPort::NoParity);
    line.open();
    QVERIFY(line.isOpen());
    QCOMPARE(line.remarks(), QStringList());
    QCOMPARE(line.modeText(), QString()); // a pseudo-terminal delays nothing
    const int other = ::open(qPrintable(controller.name()), O_RDWR | O_NOCTTY);
    // A port is opened for one: root alone may look in.
    if (other >= 0) {
        QCOMPARE(baudOf(other), baud);
        ::close(other);
    }
}

QTEST_GUILESS_MAIN(PortDriverTest)
#include "tst_port_driver.moc"
