// kxhost behind gateways of the network that are played by the test.

#include "numbering_controller.h"
#include "watch_process.h"

#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

namespace
{

const int READ_REQUEST_LENGTH = 8; // station, function, address, quantity, CRC

/// Answers the reads of the one who connects.
class NumberingGateway
{
public:
    NumberingGateway()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

    NumberingController controller;

private:
    void accept()
    {
        QTcpSocket* const peer = m_server.nextPendingConnection();
        QObject::connect(peer, &QTcpSocket::readyRead, peer, [this, peer] {
            while (peer->bytesAvailable() >= READ_REQUEST_LENGTH)
                peer->write(controller.replyTo(peer->read(READ_REQUEST_LENGTH)));
        });
    }

    QTcpServer m_server;
};

} // namespace

class WatchGatewaysTest : public QObject
{
    Q_OBJECT

private slots:
    void bothSidesOfSmComeFromTheirOwnCoils();
};

void WatchGatewaysTest::bothSidesOfSmComeFromTheirOwnCoils()
{
    NumberingGateway gateway;
    // SM0 to SM255 are coils 4400 to 4655, SM256 to SM511 are 30000 to 30255: 1 from 16384 on.
    gateway.controller.coilBit = 14;
    RunningWatch watch({"watch", "SM250:12", "--cycles", "1", "--tcp", gateway.address()});
    QCOMPARE(watch.exitCode(), 0);
    QStringList lines = QString::fromUtf8(watch.output()).split(QLatin1Char('\n'));
    QCOMPARE(withoutTimes(lines.mid(0, 12)).join(QLatin1Char(',')),
             QString("1 SM250 0,1 SM251 0,1 SM252 0,1 SM253 0,1 SM254 0,1 SM255 0,1 SM256 1,"
                     "1 SM257 1,1 SM258 1,1 SM259 1,1 SM260 1,1 SM261 1"));
    QVERIFY(holds(lines, "2 requests in 1 cycle: 2 accepted"));
}

QTEST_GUILESS_MAIN(WatchGatewaysTest)
#include "tst_watch_gateways.moc"
