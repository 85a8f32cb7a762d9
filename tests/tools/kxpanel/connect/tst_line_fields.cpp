#include "kxhost/options/length_options.h"
#include "kxpanel/connect/line_fields.h"

#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

using namespace kxpanel;

class LineFieldsTest : public QObject
{
    Q_OBJECT

private slots:
    void aSerialPort();
    void aGateway_data();
    void aGateway();
    void simulated();
    void whatIsWrong_data();
    void whatIsWrong();
    void theWayBack();
    void whatNoFieldShowsIsKept();
    void ofWrongFieldsAProjectGetsWhatWasThere();
    void portsComeAndGo();
    void aChosenPortIsUsedWithoutItsDescription();
    void aTypedPortIsTakenAsItIsTyped();
    void whoTypesStaysWhereHeIs();
    void ofAnOpenLineNothingCanBeChanged();
    void editsAreTold();
};

namespace
{

template <class Field>
Field* field(const QWidget& fields, const char* name)
{
    for (Field* const found : fields.findChildren<Field*>()) {
        if (found->accessibleName() == QLatin1String(name))
            return found;
    }
    qFatal("no field %s", name);
}

void choose(const QWidget& fields, const char* name, const char* text)
{
    field<QComboBox>(fields, name)->setCurrentText(QString::fromLatin1(text));
}

kx::PortEntry port(const char* name, const char* description)
{
    kx::PortEntry entry;
    entry.port = QString::fromLatin1(name);
    entry.description = QString::fromLatin1(description);
    return entry;
}

/// What they say; a fault is a failure.
kx::ConnectionOptions taken(LineFields* fields)
{
    kx::ConnectionOptions options;
    QString fault;
    if (!fields->takeOptions(&options, &fault))
        qFatal("%s", qPrintable(fault));
    return options;
}

} // namespace

void LineFieldsTest::aSerialPort()
{
    LineFields fields;
    choose(fields, "Port", " /dev/ttyUSB0 ");
    choose(fields, "Speed", "19200");
    choose(fields, "Parity", "even parity");
    choose(fields, "Stop bits", "2 stop bits");
    const kx::ConnectionOptions options = taken(&fields);
    QCOMPARE(options.port, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(options.timing.baud, 19200);
    QCOMPARE(options.parity, QSerialPort::EvenParity);
    QCOMPARE(options.timing.parityBits, 1);
    QCOMPARE(options.timing.stopBits, 2);
    QVERIFY(!options.simulate);
    QVERIFY(options.gateway.host.isEmpty());
}

void LineFieldsTest::aGateway_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("protocol");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<int>("settle"); // milliseconds; negative: as the time-out
    QTest::newRow("its port") << "10.0.0.5:4001"
                              << "Modbus RTU"
                              << "10.0.0.5:4001" << -1;
    QTest::newRow("the usual port") << "gateway"
                                    << "Modbus RTU"
                                    << "gateway:8888" << -1;
    QTest::newRow("that of Modbus TCP") << "gateway"
                                        << "Modbus TCP"
                                        << "gateway:502" << 0;
    QTest::newRow("IPv6") << "[::1]:9000"
                          << "Modbus TCP"
                          << "[::1]:9000" << 0;
}

void LineFieldsTest::aGateway()
{
    QFETCH(QString, typed);
    QFETCH(QString, protocol);
    LineFields fields;
    choose(fields, "Line", "Gateway");
    choose(fields, "Protocol", qPrintable(protocol));
    field<QLineEdit>(fields, "Gateway")->setText(typed);
    const kx::ConnectionOptions options = taken(&fields);
    QTEST(kx::gatewayText(options.gateway), "gateway");
    QTEST(options.session.exchange.settle, "settle");
    QCOMPARE(options.protocol == kx::GatewayProtocol::Tcp, protocol == "Modbus TCP");
}

void LineFieldsTest::simulated()
{
    LineFields fields;
    choose(fields, "Line", "Simulated");
    QVERIFY(taken(&fields).simulate); // and needs no port
}

void LineFieldsTest::whatIsWrong_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("speed");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<QString>("fault");
    QTest::newRow("no port") << "Serial port"
                             << " "
                             << "9600"
                             << ""
                             << "Name the serial port, such as /dev/ttyUSB0";
    QTest::newRow("no speed") << "Serial port"
                              << "/dev/ttyS0"
                              << ""
                              << ""
                              << "Speed '': must be 1 to 4000000 bits per second";
    QTest::newRow("speed 0") << "Serial port"
                             << "/dev/ttyS0"
                             << "0"
                             << ""
                             << "Speed '0': must be 1 to 4000000 bits per second";
    QTest::newRow("too fast") << "Simulated"
                              << ""
                              << "4000001"
                              << ""
                              << "Speed '4000001': must be 1 to 4000000 bits per second";
    QTest::newRow("a speed with a unit") << "Serial port"
                                         << "/dev/ttyS0"
                                         << "9.6k"
                                         << ""
                                         << "Speed '9.6k': must be 1 to 4000000 bits per second";
    QTest::newRow("no gateway") << "Gateway"
                                << ""
                                << "9600"
                                << ""
                                << "Name the gateway, such as 192.168.0.5:8888";
    QTest::newRow("a bare IPv6 address")
        << "Gateway"
        << ""
        << "9600"
        << "fe80::1"
        << "Gateway 'fe80::1': write HOST or HOST:PORT, and an IPv6 address in brackets";
}

void LineFieldsTest::whatIsWrong()
{
    QFETCH(QString, line);
    QFETCH(QString, port);
    QFETCH(QString, speed);
    QFETCH(QString, gateway);
    LineFields fields;
    choose(fields, "Line", qPrintable(line));
    choose(fields, "Port", qPrintable(port));
    choose(fields, "Speed", qPrintable(speed));
    field<QLineEdit>(fields, "Gateway")->setText(gateway);
    kx::ConnectionOptions options;
    options.port = QStringLiteral("untouched");
    QString fault;
    QVERIFY(!fields.takeOptions(&options, &fault));
    QTEST(fault, "fault");
    QCOMPARE(options.port, QStringLiteral("untouched"));
}

void LineFieldsTest::theWayBack()
{
    kx::ConnectionOptions options;
    options.gateway = {QStringLiteral("10.0.0.5"), 4001};
    options.protocol = kx::GatewayProtocol::Tcp;
    LineFields fields;
    fields.setOptions(options);
    QCOMPARE(field<QComboBox>(fields, "Line")->currentText(), QStringLiteral("Gateway"));
    QCOMPARE(field<QLineEdit>(fields, "Gateway")->text(), QStringLiteral("10.0.0.5:4001"));
    QCOMPARE(field<QComboBox>(fields, "Protocol")->currentText(), QStringLiteral("Modbus TCP"));
    options = kx::ConnectionOptions();
    options.port = QStringLiteral("/dev/ttyS1");
    options.timing = {38400, 8, 1, 2};
    options.parity = QSerialPort::OddParity;
    fields.setOptions(options);
    QCOMPARE(field<QComboBox>(fields, "Line")->currentText(), QStringLiteral("Serial port"));
    QCOMPARE(field<QComboBox>(fields, "Port")->currentText(), QStringLiteral("/dev/ttyS1"));
    QCOMPARE(field<QComboBox>(fields, "Speed")->currentText(), QStringLiteral("38400"));
    QCOMPARE(field<QComboBox>(fields, "Parity")->currentText(), QStringLiteral("odd parity"));
    QCOMPARE(field<QComboBox>(fields, "Stop bits")->currentText(), QStringLiteral("2 stop bits"));
    options.simulate = true;
    fields.setOptions(options);
    QCOMPARE(field<QComboBox>(fields, "Line")->currentText(), QStringLiteral("Simulated"));
}

void LineFieldsTest::whatNoFieldShowsIsKept()
{
    kx::ConnectionOptions options;
    options.port = QStringLiteral("/dev/ttyS1");
    options.library = QStringLiteral("/opt/driver.so");
    options.session = kx::settingsForReading();
    options.session.exchange.replyTimeout = 250;
    options.station = 7;
    LineFields fields;
    fields.setOptions(options);
    const kx::ConnectionOptions back = taken(&fields);
    QCOMPARE(back.library, QStringLiteral("/opt/driver.so"));
    QCOMPARE(back.session.exchange.replyTimeout, 250);
    QVERIFY(back.session.choosesLengths);
    QCOMPARE(back.station, 7);
}

void LineFieldsTest::ofWrongFieldsAProjectGetsWhatWasThere()
{
    kx::ConnectionOptions options;
    options.port = QStringLiteral("/dev/ttyS1");
    options.timing.baud = 19200;
    LineFields fields;
    fields.setOptions(options);
    choose(fields, "Parity", "even parity");
    choose(fields, "Speed", "fast");
    QCOMPARE(fields.shownOptions().timing.baud, 19200);
    QCOMPARE(fields.shownOptions().parity, QSerialPort::EvenParity);
}

void LineFieldsTest::portsComeAndGo()
{
    LineFields fields;
    const auto* const ports = field<QComboBox>(fields, "Port");
    fields.setPorts({port("/dev/ttyUSB0", "FT232R"), port("/dev/ttyS0", "")});
    QCOMPARE(ports->currentText(), QString()); // a person chooses
    QCOMPARE(ports->itemText(0), QStringLiteral("/dev/ttyUSB0  FT232R"));
    QCOMPARE(ports->itemText(1), QStringLiteral("/dev/ttyS0"));
    choose(fields, "Port", "/dev/ttyUSB7");
    fields.setPorts({port("/dev/ttyS0", "")});
    QCOMPARE(ports->currentText(), QStringLiteral("/dev/ttyUSB7")); // what is typed stays
    QCOMPARE(ports->count(), 1);
}

void LineFieldsTest::aChosenPortIsUsedWithoutItsDescription()
{
    LineFields fields;
    fields.setPorts({port("/dev/ttyS0", ""), port("/dev/ttyUSB0", "FT232R")});
    auto* const ports = field<QComboBox>(fields, "Port");
    ports->setFocus();
    QTest::keyClick(ports, Qt::Key_Down);
    QCOMPARE(ports->currentText(), QStringLiteral("/dev/ttyS0"));
    QTest::keyClick(ports, Qt::Key_Down);
    QCOMPARE(ports->currentText(), QStringLiteral("/dev/ttyUSB0"));
    fields.setPorts({port("/dev/ttyS0", ""), port("/dev/ttyUSB0", "FT232R, in use by minicom")});
    QTest::keyClick(ports, Qt::Key_Up); // from where it was
    QCOMPARE(ports->currentText(), QStringLiteral("/dev/ttyS0"));
}

void LineFieldsTest::aTypedPortIsTakenAsItIsTyped()
{
    LineFields fields;
    fields.setPorts({port("/dev/ttyUSB0", "FT232R")});
    auto* const ports = field<QComboBox>(fields, "Port");
    QTest::keyClicks(ports->lineEdit(), "/dev/ttyU");
    QCOMPARE(ports->currentText(), QStringLiteral("/dev/ttyU"));
    QTest::keyClicks(ports->lineEdit(), "SB0");
    QTest::keyClick(ports->lineEdit(), Qt::Key_Return);
    QCOMPARE(taken(&fields).port, QStringLiteral("/dev/ttyUSB0"));
}

void LineFieldsTest::whoTypesStaysWhereHeIs()
{
    LineFields fields;
    auto* const edit = field<QComboBox>(fields, "Port")->lineEdit();
    QTest::keyClicks(edit, "/dev/tty0");
    edit->setCursorPosition(8);
    fields.setPorts({port("/dev/ttyS0", "")});
    QTest::keyClicks(edit, "S");
    QCOMPARE(edit->text(), QStringLiteral("/dev/ttyS0"));
}

void LineFieldsTest::ofAnOpenLineNothingCanBeChanged()
{
    LineFields fields;
    fields.setLineEnabled(false);
    for (const QComboBox* const box : fields.findChildren<QComboBox*>())
        QVERIFY2(!box->isEnabled(), qPrintable(box->accessibleName()));
    fields.setLineEnabled(true);
    QVERIFY(field<QComboBox>(fields, "Port")->isEnabled());
}

void LineFieldsTest::editsAreTold()
{
    LineFields fields;
    QSignalSpy edits(&fields, &LineFields::edited);
    fields.setOptions(kx::ConnectionOptions());
    fields.setPorts({port("/dev/ttyS0", "")});
    QCOMPARE(edits.count(), 0); // by nobody
    choose(fields, "Speed", "19200");
    QVERIFY(edits.count() > 0);
}

QTEST_MAIN(LineFieldsTest)
#include "tst_line_fields.moc"
