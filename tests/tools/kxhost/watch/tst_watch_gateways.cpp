// kxhost behind gateways of the network that are played by the test.

#include "model/random_source.h"
#include "support/memory_use.h"
#include "tools/kxhost/commands/watch_process.h"
#include "tools/panel/watch/numbering_controller.h"

#include <QtCore/QFile>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <csignal>
#include <unistd.h>

using namespace kx;

namespace
{

const qint64 MOST_GROWTH = 4 << 20; // bytes; the flood brings more in a second
const int READ_REQUEST_LENGTH = 8;  // station, function, address, quantity, CRC

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

/// Sends random bytes without end to the one who connects.
class FloodingGateway
{
public:
    FloodingGateway()
    {
        RandomSource random(1);
        for (int i = 0; i < 64 * 1024; ++i)
            m_piece += static_cast<char>(random.byte());
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* const peer = m_server.nextPendingConnection();
            QObject::connect(peer, &QTcpSocket::bytesWritten, peer, [this, peer] {
                if (peer->bytesToWrite() < m_piece.size())
                    peer->write(m_piece);
            });
            peer->write(m_piece);
        });
    }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

private:
    QTcpServer m_server;
    QByteArray m_piece;
};

/// Resident, in bytes.
qint64 memoryOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/statm").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

} // namespace

class WatchGatewaysTest : public QObject
{
    Q_OBJECT

private slots:
    void bothSidesOfSmComeFromTheirOwnCoils();
    void aFloodIsSaidAndObeysCtrlC();
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

void WatchGatewaysTest::aFloodIsSaidAndObeysCtrlC()
{
    FloodingGateway gateway;
    RunningWatch watch({"watch", "D0", "--timeout", "300", "--retries", "1", "--frames", "--tcp",
                        gateway.address()});
    QVERIFY(watch.waitForOutput("the line is never silent, failed: 0,1,0,D"));
    QVERIFY(watch.waitForOutput(" 1 D0 no answer\n"));
    const qint64 memory = memoryOf(watch.processId());
    QTest::qWait(1000);
    // kxhost is built as this program is: AddressSanitizer would keep what it frees.
    if (isMemoryMeasurable())
        QVERIFY(memoryOf(watch.processId()) < memory + MOST_GROWTH);
    watch.sendSignal(SIGINT);
    QCOMPARE(watch.exitCode(), 1);
    QVERIFY2(watch.output().contains(" kept back by a line that was never silent\n"),
             watch.output().right(1000).constData());
}

QTEST_GUILESS_MAIN(WatchGatewaysTest)
#include "tst_watch_gateways.moc"
