// Gateways that do not answer as a person expects.

#include "exchange/lines/frame_crc.h"
#include "tools/kxpanel/machine_fixture.h"

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

using namespace kxpanel;

class MachineGatewayTest : public QObject
{
    Q_OBJECT

private slots:
    void oneThatNeverAnswersIsAdvised_data();
    void oneThatNeverAnswersIsAdvised();
    void oneThatRefusesIsSaidSo();
    void stationsThatRefuseLongRequestsAreKnown();
};

namespace
{

kx::ConnectionOptions gatewayAt(quint16 port)
{
    kx::ConnectionOptions options = simulated();
    options.simulate = false;
    options.gateway.host = QStringLiteral("127.0.0.1");
    options.gateway.port = port;
    options.session.exchange.replyTimeout = 20;
    return options;
}

/// Of a station that answers no more than 16 registers at once.
QByteArray replyOfSixteen(const QByteArray& request)
{
    const int count = static_cast<quint8>(request.at(5));
    if (count > 16)
        return kx::withCrc(request.left(1) + QByteArray::fromHex("8303")); // illegal data value
    return kx::withCrc(request.left(2) + static_cast<char>(2 * count)
                       + QByteArray(2 * count, '\0'));
}

} // namespace

void MachineGatewayTest::oneThatNeverAnswersIsAdvised_data()
{
    QTest::addColumn<bool>("isTcp");
    QTest::addColumn<QString>("advice");
    QTest::newRow("asked in Modbus RTU")
        << false << "if it is a Modbus TCP server, use Modbus TCP as the protocol";
    QTest::newRow("asked in Modbus TCP")
        << true << "if it passes the serial line's bytes on, use Modbus RTU as the protocol";
}

// In the words of the window, which has a field for it.
void MachineGatewayTest::oneThatNeverAnswersIsAdvised()
{
    QFETCH(bool, isTcp);
    QFETCH(QString, advice);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    kx::ConnectionOptions options = gatewayAt(server.serverPort());
    if (isTcp)
        options.protocol = kx::GatewayProtocol::Tcp;
    Machine machine;
    const MachineLog log(&machine);
    machine.setValues({watched(1, "D100")});
    machine.openLine(options);
    const QString name = QStringLiteral("127.0.0.1:%1").arg(server.serverPort());
    QTRY_COMPARE(log.states.value(log.states.size() - 1),
                 "open: station 1 does not answer; nothing came from " + name + "; " + advice
                     + "; else it may be serving another program");
}

void MachineGatewayTest::oneThatRefusesIsSaidSo()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const quint16 port = server.serverPort();
    server.close();
    Machine machine;
    const MachineLog log(&machine);
    machine.openLine(gatewayAt(port));
    QTRY_COMPARE(log.states.size(), 2);
    QCOMPARE(log.states.last(),
             QStringLiteral("closed: 127.0.0.1:%1: cannot connect: Connection refused").arg(port));
}

void MachineGatewayTest::stationsThatRefuseLongRequestsAreKnown()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, this, [&server] {
        QTcpSocket* const socket = server.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket,
                [socket] { socket->write(replyOfSixteen(socket->readAll())); });
    });
    kx::ConnectionOptions options = gatewayAt(server.serverPort());
    options.session.exchange.replyTimeout = 2000;
    QList<WatchedValue> values;
    for (int i = 0; i < 40; ++i)
        values << watched(1 + i, QByteArray("D" + QByteArray::number(100 + i)).constData());
    Machine machine;
    const MachineLog log(&machine);
    machine.setValues(values);
    machine.openLine(options);
    QTRY_COMPARE(log.status.shortened.value(1).maxWords, 16);
    QVERIFY(log.status.shortened.value(1).maySpanGaps);
    QCOMPARE(log.status.shortened.size(), 1);
    QCOMPARE(log.status.replyTimeout, 2000);
    machine.setLimits(16, 256); // another session learns anew
    QTRY_COMPARE(log.status.sessions, 2);
    QVERIFY(log.status.shortened.isEmpty());
}

QTEST_MAIN(MachineGatewayTest)
#include "tst_machine_gateway.moc"
