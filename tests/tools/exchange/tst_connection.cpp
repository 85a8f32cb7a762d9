#include "exchange/connection.h"
#include "tools/exchange/lines/pseudo_terminal.h"

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kx;

namespace
{

/// What a connection tells, in order.
class Listener
{
public:
    explicit Listener(Connection* connection)
    {
        QObject::connect(connection, &Connection::opened, connection,
                         [this] { told << QStringLiteral("opened"); });
        QObject::connect(connection, &Connection::interrupted, connection,
                         [this] { told << QStringLiteral("interrupted"); });
        QObject::connect(connection, &Connection::failed, connection,
                         [this](const Failure& failure) {
                             told << QStringLiteral("failed");
                             failures << failure;
                         });
    }

    QStringList told;
    QList<Failure> failures;
};

ConnectionSettings serial(const QString& port, int patience = 0)
{
    ConnectionSettings settings;
    settings.port = port;
    settings.patience = patience;
    return settings;
}

ConnectionSettings gateway(quint16 port)
{
    ConnectionSettings settings;
    settings.port = QStringLiteral("/dev/unused");
    settings.gateway = {QStringLiteral("127.0.0.1"), port};
    return settings;
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

} // namespace

class ConnectionTest : public QObject
{
    Q_OBJECT

private slots:
    void aSerialPortIsOpened();
    void theSerialPortIsSetUpAsAskedFor();
    void aGatewayIsConnectedTo();
    void aGatewayTakesTheProtocolAskedFor_data();
    void aGatewayTakesTheProtocolAskedFor();
    void whatCannotBeOpened_data();
    void whatCannotBeOpened();
    void aLostLineFails();
    void aLostLineIsOpenedAgain();
    void aLineThatStaysAwayFails();
    void closedBeforeItIsOpen_data();
    void closedBeforeItIsOpen();
    void closedWhileInterrupted();
    void openedTwiceIsOpenedOnce();
    void openedAgainAfterAFailure();
};

void ConnectionTest::aSerialPortIsOpened()
{
    const PseudoTerminal controller;
    Connection connection(serial(controller.name()));
    Listener listener(&connection);
    QCOMPARE(connection.line()->name(), controller.name());
    QVERIFY(!connection.line()->isOpen());
    connection.open();
    QCOMPARE(listener.told, QStringList());
    QVERIFY(!connection.isOpen());
    QTRY_COMPARE(listener.told, words("opened"));
    QVERIFY(connection.isOpen());
    connection.line()->write("request");
    QCOMPARE(controller.awaited(), QByteArray("request"));
    connection.close();
    QVERIFY(!connection.isOpen());
    QVERIFY(!connection.line()->isOpen());
    QTest::qWait(20);
    QCOMPARE(listener.told, words("opened"));
}

void ConnectionTest::theSerialPortIsSetUpAsAskedFor()
{
    const PseudoTerminal controller;
    ConnectionSettings settings = serial(controller.name());
    settings.timing = {19200, 8, 1, 2};
    settings.parity = QSerialPort::EvenParity;
    const Connection connection(settings);
    QCOMPARE(connection.line()->timing().baud, 19200);
    QCOMPARE(connection.line()->timing().bitsPerCharacter(), 12);
}

void ConnectionTest::aGatewayIsConnectedTo()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    Connection connection(gateway(server.serverPort()));
    Listener listener(&connection);
    QCOMPARE(connection.line()->name(), QStringLiteral("127.0.0.1:%1").arg(server.serverPort()));
    connection.open();
    QCOMPARE(listener.told, QStringList());
    QTRY_COMPARE(listener.told, words("opened"));
    QVERIFY(connection.isOpen());
}

void ConnectionTest::aGatewayTakesTheProtocolAskedFor_data()
{
    QTest::addColumn<bool>("isTcp");
    QTest::addColumn<int>("patience");
    QTest::addColumn<QByteArray>("sent");
    // Station 1, function 3, address 0, quantity 1, CRC.
    const QByteArray rtu = QByteArray::fromHex("01 03 0000 0001 840A");
    // Transaction 1, protocol 0, 6 bytes follow, the same without CRC.
    const QByteArray tcp = QByteArray::fromHex("0001 0000 0006 01 03 0000 0001");
    QTest::newRow("Modbus RTU") << false << 0 << rtu;
    QTest::newRow("Modbus TCP") << true << 0 << tcp;
    QTest::newRow("Modbus TCP, with patience") << true << 1000 << tcp;
}

void ConnectionTest::aGatewayTakesTheProtocolAskedFor()
{
    QFETCH(bool, isTcp);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    ConnectionSettings settings = gateway(server.serverPort());
    settings.protocol = isTcp ? GatewayProtocol::Tcp : GatewayProtocol::Rtu;
    QFETCH(int, patience);
    settings.patience = patience;
    Connection connection(settings);
    connection.open();
    QTRY_VERIFY(connection.isOpen() && server.hasPendingConnections());
    QTcpSocket* const peer = server.nextPendingConnection();
    connection.line()->write(QByteArray::fromHex("01 03 0000 0001 840A"));
    QVERIFY(peer->waitForReadyRead(2000));
    QTEST(peer->readAll(), "sent");
}

void ConnectionTest::whatCannotBeOpened_data()
{
    QTest::addColumn<bool>("isGateway");
    QTest::addColumn<int>("patience");
    QTest::addColumn<QString>("start");
    const QString port = QStringLiteral("/dev/kx-no-such-port: cannot open the port: ");
    const QString host = QStringLiteral("127.0.0.1:1: cannot connect: ");
    QTest::newRow("no such port") << false << 0 << port;
    QTest::newRow("no such port, with patience") << false << 1000 << port;
    QTest::newRow("a gateway that refuses") << true << 0 << host;
}

void ConnectionTest::whatCannotBeOpened()
{
    QFETCH(bool, isGateway);
    QFETCH(int, patience);
    QFETCH(QString, start);
    Connection connection(isGateway ? gateway(1)
                                    : serial(QStringLiteral("/dev/kx-no-such-port"), patience));
    Listener listener(&connection);
    connection.open();
    QCOMPARE(listener.told, QStringList());
    QTRY_COMPARE(listener.told, words("failed"));
    QVERIFY(!connection.isOpen());
    const Failure failure = listener.failures.first();
    QVERIFY(failure.kind == FailureKind::CannotOpen);
    QVERIFY2(failure.text.startsWith(start), qPrintable(failure.text));
    QTest::qWait(150);
    QCOMPARE(listener.told, words("failed"));
}

void ConnectionTest::aLostLineFails()
{
    PseudoTerminal controller;
    Connection connection(serial(controller.name()));
    Listener listener(&connection);
    connection.open();
    QTRY_VERIFY(connection.isOpen());
    const QString name = controller.name();
    controller.closeEnd();
    QTRY_COMPARE(listener.told, words("opened failed"));
    QVERIFY(!connection.isOpen());
    QVERIFY(listener.failures.first().kind == FailureKind::LineLost);
    QCOMPARE(listener.failures.first().text,
             name + QStringLiteral(": the port was closed or unplugged"));
}

void ConnectionTest::aLostLineIsOpenedAgain()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("line"));
    PseudoTerminal first;
    const PseudoTerminal second;
    QVERIFY(QFile::link(first.name(), link));
    Connection connection(serial(link, 5000));
    Listener listener(&connection);
    connection.open();
    QTRY_COMPARE(listener.told, words("opened"));
    QVERIFY(QFile::remove(link));
    first.closeEnd();
    QTRY_COMPARE(listener.told, words("opened interrupted"));
    QVERIFY(!connection.isOpen());
    QVERIFY(QFile::link(second.name(), link));
    QTRY_COMPARE(listener.told, words("opened interrupted opened"));
    QVERIFY(connection.isOpen());
    connection.line()->write("request");
    QCOMPARE(second.awaited(), QByteArray("request"));
}

void ConnectionTest::aLineThatStaysAwayFails()
{
    PseudoTerminal controller;
    Connection connection(serial(controller.name(), 250));
    Listener listener(&connection);
    connection.open();
    QTRY_VERIFY(connection.isOpen());
    controller.closeEnd();
    QTRY_COMPARE(listener.told, words("opened interrupted failed"));
    QVERIFY(!connection.isOpen());
    QVERIFY(listener.failures.first().kind == FailureKind::LineLost);
    QTest::qWait(150);
    QCOMPARE(listener.told, words("opened interrupted failed"));
}

void ConnectionTest::closedBeforeItIsOpen_data()
{
    QTest::addColumn<bool>("isGateway");
    QTest::newRow("a serial port") << false;
    QTest::newRow("a gateway") << true;
}

void ConnectionTest::closedBeforeItIsOpen()
{
    QFETCH(bool, isGateway);
    const PseudoTerminal controller;
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    Connection connection(isGateway ? gateway(server.serverPort()) : serial(controller.name()));
    Listener listener(&connection);
    connection.open();
    connection.close();
    QTest::qWait(100);
    QCOMPARE(listener.told, QStringList());
    QVERIFY(!connection.line()->isOpen());
}

void ConnectionTest::closedWhileInterrupted()
{
    PseudoTerminal controller;
    Connection connection(serial(controller.name(), 100));
    Listener listener(&connection);
    connection.open();
    QTRY_VERIFY(connection.isOpen());
    QSignalSpy interrupted(&connection, &Connection::interrupted);
    controller.closeEnd();
    QVERIFY(interrupted.wait()); // and no longer, or it fails first
    connection.close();
    QTest::qWait(350);
    QCOMPARE(listener.told, words("opened interrupted"));
}

void ConnectionTest::openedTwiceIsOpenedOnce()
{
    const PseudoTerminal controller;
    Connection connection(serial(controller.name()));
    Listener listener(&connection);
    connection.open();
    connection.open();
    QTRY_COMPARE(listener.told, words("opened"));
    connection.open();
    QTest::qWait(50);
    QCOMPARE(listener.told, words("opened"));
}

void ConnectionTest::openedAgainAfterAFailure()
{
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("line"));
    const PseudoTerminal controller;
    Connection connection(serial(link));
    Listener listener(&connection);
    connection.open();
    QTRY_COMPARE(listener.told, words("failed"));
    QVERIFY(QFile::link(controller.name(), link));
    connection.open();
    QTRY_COMPARE(listener.told, words("failed opened"));
}

QTEST_GUILESS_MAIN(ConnectionTest)
#include "tst_connection.moc"
