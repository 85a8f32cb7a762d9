// Gateways that do not answer as a person expects.

#include "tools/kxpanel/machine_fixture.h"

#include <QtNetwork/QTcpServer>
#include <QtTest/QTest>

using namespace kxpanel;

class MachineGatewayTest : public QObject
{
    Q_OBJECT

private slots:
    void oneThatNeverAnswersIsAdvised_data();
    void oneThatNeverAnswersIsAdvised();
    void oneThatRefusesIsSaidSo();
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

QTEST_MAIN(MachineGatewayTest)
#include "tst_machine_gateway.moc"
