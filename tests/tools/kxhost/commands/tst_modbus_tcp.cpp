// kxhost and servers of Modbus TCP: one on libmodbus, and some that are played by the test.

#include "command_process.h"
#include "modbus_tcp_server.h"
#include "watch_process.h"

#include <QtCore/QTemporaryDir>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <functional>

using namespace kx;

namespace
{

/// Does with each piece of what a client sends what a test says.
class PlayedServer
{
public:
    explicit PlayedServer(const std::function<void(QTcpSocket*)>& onRequest)
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this, onRequest] {
            QTcpSocket* const peer = m_server.nextPendingConnection();
            QObject::connect(peer, &QTcpSocket::readyRead, peer,
                             [peer, onRequest] { onRequest(peer); });
        });
    }

    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort()); }

private:
    QTcpServer m_server;
};

QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

} // namespace

class ModbusTcpTest : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreRead();
    void valuesAreWritten();
    void aRefusalIsNamed();
    void valuesAreWatched();
    void aRecipeGoesThereAndBack();
    void stationsAreFound();
    void framesAreShownAsRtu();
    void rawFramesAreCarried();
    void aServerAskedInRtuIsKnownByItsFrames();
    void aServerThatClosesTheConnection();
    void aServerThatSaysNothing();
    void aLateReplyIsNotTakenForTheNext();
    void aGatewayOfRtuIsNoServer();

private:
    CommandResult onServer(const QStringList& arguments)
    {
        return runCommand(arguments
                          + QStringList{"--tcp", m_server.address(), "--protocol", "tcp"});
    }

    ModbusTcpServer m_server;
};

void ModbusTcpTest::valuesAreRead()
{
    const CommandResult result = onServer({"read", "D100:2", "M0:8"});
    QCOMPARE(result.output, (QStringList{"1 D100 1234", "1 D101 0", "1 M0 0", "1 M1 0", "1 M2 0",
                                         "1 M3 0", "1 M4 0", "1 M5 1", "1 M6 0", "1 M7 0"}));
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
}

void ModbusTcpTest::valuesAreWritten()
{
    const CommandResult result =
        onServer({"write", "D200=7", "D201=1,2,3", "M100=1", "M101@9=1,0,1"});
    QCOMPARE(result.output, (QStringList{"1 D200=7 confirmed", "1 D201=1,2,3 confirmed",
                                         "1 M100=1 confirmed", "9 M101=1,0,1 confirmed"}));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(onServer({"read", "D200:4", "M100:4"}).output,
             (QStringList{"1 D200 7", "1 D201 1", "1 D202 2", "1 D203 3", "1 M100 1", "1 M101 1",
                          "1 M102 0", "1 M103 1"}));
}

void ModbusTcpTest::aRefusalIsNamed()
{
    const CommandResult result = onServer({"read", "D7000", "--retries", "1"});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors, QStringList{"kxhost: D7000@1: exception 2 (illegal data address)"});
    QCOMPARE(result.exitCode, 1);
}

void ModbusTcpTest::valuesAreWatched()
{
    const CommandResult result = onServer({"watch", "D100", "M5@247", "--cycles", "20"});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.errors, QStringList());
    QVERIFY2(result.output.contains("40 requests in 20 cycles: 40 accepted, 0 repeated, 0 failed"),
             qPrintable(result.output.join('\n')));
}

void ModbusTcpTest::aRecipeGoesThereAndBack()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("filling.csv");
    const QByteArray header = "name,station,register,address,type,value\n";
    const auto store = [&](const QByteArray& rows) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(header + rows) > 0;
    };
    QVERIFY(store("Speed,,D,300,uint16,4711\nBelt,2,M,300,bit,1\n"));
    QCOMPARE(onServer({"recipe", "download", path}).exitCode, 0);
    QVERIFY(store("Speed,,D,300,uint16,0\nBelt,2,M,300,bit,0\n"));
    QCOMPARE(onServer({"recipe", "upload", path}).exitCode, 0);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), header + "Speed,,D,300,uint16,4711\nBelt,2,M,300,bit,1\n");
}

void ModbusTcpTest::stationsAreFound()
{
    const CommandResult result = onServer({"scan", "--stations", "1,247"});
    QCOMPARE(result.output, (QStringList{"station 1: answered", "station 247: answered",
                                         "2 of 2 stations answered"}));
    QCOMPARE(result.exitCode, 0);
}

void ModbusTcpTest::framesAreShownAsRtu()
{
    const CommandResult result = onServer({"read", "D100", "--frames"});
    const QString all = result.output.join('\n');
    QVERIFY2(all.contains("reply   station 01, function 03, byte count 02, data 04 D2, CRC 3A D9: "
                          "good, accepted"),
             qPrintable(all));
}

void ModbusTcpTest::rawFramesAreCarried()
{
    const CommandResult result = onServer({"raw", "00 03 00 64 00 01"}); // station 0 answers here
    QCOMPARE(result.output.value(2),
             QStringLiteral("         station 0, function 3 (read holding registers), registers "
                            "1234"));
    QCOMPARE(result.exitCode, 0);
}

void ModbusTcpTest::aServerAskedInRtuIsKnownByItsFrames()
{
    const CommandResult result =
        runCommand(QStringList{"read", "D0", "--tcp", m_server.address(), "--retries", "1"});
    QCOMPARE(result.output, QStringList());
    QCOMPARE(result.errors,
             (QStringList{"kxhost: D0@1: bad reply, a frame of Modbus TCP",
                          "kxhost: " + m_server.address()
                              + " answers with Modbus TCP frames; use --protocol tcp"}));
    QCOMPARE(result.exitCode, 1);
}

void ModbusTcpTest::aServerThatClosesTheConnection()
{
    PlayedServer server([](QTcpSocket* peer) { peer->close(); });
    RunningWatch read({"read", "D0", "--tcp", server.address()});
    QCOMPARE(read.exitCode(), 1);
    const QByteArray errors = read.errors();
    QVERIFY2(errors.endsWith(" is lost and no station has answered; if it is a Modbus TCP server, "
                             "use --protocol tcp\n"),
             errors.constData());
}

void ModbusTcpTest::aServerThatSaysNothing()
{
    PlayedServer server([](QTcpSocket* peer) { peer->readAll(); });
    const QString advice =
        "kxhost: nothing came from " + server.address()
        + "; if it is a Modbus TCP server, use --protocol tcp; else it may be serving "
          "another program\n";
    RunningWatch scan({"scan", "--tcp", server.address(), "--stations", "1-2", "--timeout", "50"});
    QCOMPARE(scan.exitCode(), 1);
    QCOMPARE(QString::fromUtf8(scan.errors()), advice);
    RunningWatch raw({"raw", "01", "03", "--tcp", server.address(), "--timeout", "50"});
    QCOMPARE(raw.exitCode(), 1);
    QCOMPARE(QString::fromUtf8(raw.errors()), advice);
}

void ModbusTcpTest::aLateReplyIsNotTakenForTheNext()
{
    // The first request gets its reply right before that of its repeat.
    int requests = 0;
    PlayedServer server([&requests](QTcpSocket* peer) {
        const QByteArray request = peer->readAll();
        QCOMPARE(int(request.size()), 12); // header, station, function, address, quantity
        if (++requests == 2)
            peer->write(hex("0001 0000 0005 01 03 02 1111  0002 0000 0005 01 03 02 2222"));
    });
    RunningWatch read({"read", "D0", "--tcp", server.address(), "--protocol", "tcp", "--retries",
                       "2", "--timeout", "300"});
    QCOMPARE(read.exitCode(), 0);
    QCOMPARE(read.output(), QByteArray("1 D0 8738\n"));
}

void ModbusTcpTest::aGatewayOfRtuIsNoServer()
{
    // Station 1, function 3, 2 bytes, 7, CRC.
    PlayedServer gateway([](QTcpSocket* peer) { peer->write(hex("01 03 02 0007 F986")); });
    RunningWatch read({"read", "D0", "--tcp", gateway.address(), "--protocol", "tcp"});
    QCOMPARE(read.exitCode(), 1);
    QCOMPARE(read.output(), QByteArray());
    const QString name = gateway.address();
    QCOMPARE(QString::fromUtf8(read.errors()),
             "kxhost: D0@1: " + name
                 + ": what it sends is not Modbus TCP\nkxhost: the connection to " + name
                 + " is lost and no station has answered; if it passes the serial line's bytes on, "
                   "use --protocol rtu\n");
}

QTEST_GUILESS_MAIN(ModbusTcpTest)
#include "tst_modbus_tcp.moc"
