#include "exchange/lines/serial_line.h"
#include "exchange/lines/tcp_line.h"
#include "tools/exchange/lines/pseudo_terminal.h"

#include <QtCore/QLockFile>
#include <QtCore/QSocketNotifier>
#include <QtNetwork/QTcpServer>
#include <QtTest/QTest>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/eventfd.h>
#include <sys/socket.h>

using namespace kx;

namespace
{

/// An empty current folder, for as long as it lives.
class CurrentFolder
{
public:
    CurrentFolder() { QDir::setCurrent(m_folder.path()); }
    ~CurrentFolder() { QDir::setCurrent(m_before); }

    QString path() const { return QDir::currentPath(); }

private:
    QString m_before = QDir::currentPath();
    QTemporaryDir m_folder;
};

/// Takes up no connection, and has no room for further ones to wait: they get no answer.
class FullServer
{
public:
    FullServer() : m_server(socket(AF_INET, SOCK_STREAM, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof m_address;
        auto* const address = reinterpret_cast<sockaddr*>(&m_address);
        QVERIFY(bind(m_server, address, size) == 0 && listen(m_server, 0) == 0);
        QVERIFY(getsockname(m_server, address, &size) == 0);
        for (int& client : m_clients) {
            client = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
            connect(client, address, size);
        }
    }
    ~FullServer()
    {
        for (const int client : m_clients)
            close(client);
        close(m_server);
    }
    quint16 port() const { return ntohs(m_address.sin_port); }

private:
    int m_server;
    sockaddr_in m_address = {};
    int m_clients[4] = {};
};

/// A hundred thousand bytes, none of them lost or out of order.
QByteArray flood()
{
    QByteArray bytes;
    for (int i = 0; i < 50000; ++i) {
        bytes += static_cast<char>(i >> 8);
        bytes += static_cast<char>(i & 0xFF);
    }
    return bytes;
}

/// What a line tells.
struct Listener {
    explicit Listener(Line* line)
    {
        QObject::connect(line, &Line::opened, line, [this] { ++opened; });
        QObject::connect(line, &Line::bytesArrived, line, [this](const QByteArray& bytes) {
            arrived += bytes;
            longest = qMax(longest, static_cast<int>(bytes.size()));
        });
        QObject::connect(line, &Line::failed, line, [this](const QString& e) { errors << e; });
    }
    /// The longest of the pieces that came.
    int longest = 0;
    int opened = 0;
    QByteArray arrived;
    QStringList errors;
};

} // namespace

class LinesTest : public QObject
{
    Q_OBJECT

private slots:
    void serialCarriesBytesBothWays();
    void serialThrowsAwayWhatWaits();
    void serialThrowsAwayAFlood();
    void serialSendsWithoutAnEventLoop();
    void serialGivesWhatWaits();
    void serialGivesWhatTheEventLoopHasSeen_data();
    void serialGivesWhatTheEventLoopHasSeen();
    void serialKeepsBytesWhileItDoesNotReport();
    void serialSendsALongRequestIntoAFullPort();
    void serialFoundLostWhenLookedInto();
    void serialNamedByALinkInTheCurrentFolder();
    void bareNameIsLookedForInDevFirst_data();
    void bareNameIsLookedForInDevFirst();
    void serialThatIsNotThere();
    void serialThatIsNotThereAndTriedByAnother();
    void serialThatGoesAway();
    void serialFloodIsTakenInPieces();
    void networkCarriesBytesBothWays();
    void networkSendsWithoutAnEventLoop();
    void networkGivesWhatWaits();
    void networkFoundLostWhenLookedInto();
    void networkIsNamedAsItIsTyped();
    void networkFloodIsTakenInPieces();
    void networkThatRefuses();
    void networkThatDoesNotAnswer();
    void networkThatGoesAway();
};

void LinesTest::serialCarriesBytesBothWays()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), {19200, 8, 1, 1}, QSerialPort::EvenParity);
    Listener listener(&line);
    line.open();
    QCOMPARE(listener.opened, 1);
    QVERIFY(line.isOpen());
    QCOMPARE(line.name(), controller.name());
    QCOMPARE(line.timing().bitsPerCharacter(), 11);
    // All that terminals like to change: NUL, XON, XOFF, CR, LF, 0x7F, 0xFF.
    const QByteArray bytes = QByteArray::fromHex("00 11 13 0D 0A 7F FF 03 04");
    line.write(bytes);
    QByteArray received;
    QTRY_COMPARE(received += controller.received(), bytes);
    controller.send(bytes);
    QTRY_COMPARE(listener.arrived, bytes);
    QVERIFY(listener.errors.isEmpty());
}

void LinesTest::serialThrowsAwayWhatWaits()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    QCOMPARE(line.discardWaiting(), QByteArray());
    controller.deliver("old");
    QCOMPARE(line.discardWaiting(), QByteArray("old"));
    controller.deliver("new");
    QTRY_COMPARE(listener.arrived, QByteArray("new"));
}

void LinesTest::serialThrowsAwayAFlood()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    QVERIFY(controller.sendSome(flood()) > BoundedReader::MOST_AT_ONCE);
    QTest::qSleep(20);
    QVERIFY(!line.discardWaiting().isEmpty());
    QTest::qWait(20);
    QCOMPARE(listener.arrived, QByteArray());
    controller.send("new");
    QTRY_COMPARE(listener.arrived, QByteArray("new"));
}

void LinesTest::serialSendsWithoutAnEventLoop()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    line.open();
    line.write("request");
    QCOMPARE(controller.awaited(), QByteArray("request"));
}

void LinesTest::serialGivesWhatWaits()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    QCOMPARE(line.takeWaiting(), QByteArray());
    Listener listener(&line);
    line.open();
    QCOMPARE(line.takeWaiting(), QByteArray());
    controller.deliver("reply");
    QCOMPARE(line.takeWaiting(), QByteArray("reply"));
    QCOMPARE(line.takeWaiting(), QByteArray());
    QTest::qWait(20);
    QCOMPARE(listener.arrived, QByteArray());
    controller.send("next");
    QTRY_COMPARE(listener.arrived, QByteArray("next"));
    QCOMPARE(listener.errors, QStringList());
}

void LinesTest::serialGivesWhatTheEventLoopHasSeen_data()
{
    QTest::addColumn<bool>("isTimerOlder");
    QTest::addColumn<bool>("isReporting");
    QTest::newRow("a timer watched before the port") << true << true;
    QTest::newRow("a timer watched after the port") << false << true;
    QTest::newRow("before, and the port does not report") << true << false;
}

// On a busy machine the event loop finds a timer and the port in one look. Bytes that the timer's
// slot has taken are not there any more when the port is told to read them, which is no lost line.
void LinesTest::serialGivesWhatTheEventLoopHasSeen()
{
    QFETCH(bool, isTimerOlder);
    QFETCH(bool, isReporting);
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    if (!isTimerOlder)
        line.open();
    const int timer = eventfd(0, EFD_NONBLOCK);
    QSocketNotifier notifier(timer, QSocketNotifier::Read);
    QByteArray taken;
    connect(&notifier, &QSocketNotifier::activated, &line, [&] {
        eventfd_t value;
        eventfd_read(timer, &value);
        taken += line.takeWaiting();
    });
    if (isTimerOlder)
        line.open();
    QCoreApplication::processEvents();
    line.setReporting(isReporting);
    for (int i = 1; i <= 3; ++i) {
        controller.deliver("seen");
        eventfd_write(timer, 1);
        QCoreApplication::processEvents();
        QCOMPARE(listener.errors, QStringList());
        QCOMPARE(taken.size() + listener.arrived.size(), 4 * i);
    }
    line.setReporting(true);
    controller.send("new");
    QTRY_VERIFY(listener.arrived.endsWith("new"));
    close(timer);
}

void LinesTest::serialKeepsBytesWhileItDoesNotReport()
{
    const PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    line.setReporting(false);
    controller.deliver("ab");
    QTest::qWait(30);
    QCOMPARE(listener.arrived, QByteArray());
    QCOMPARE(line.takeWaiting(), QByteArray("ab"));
    line.setReporting(false);
    controller.deliver("cd");
    QTest::qWait(30);
    QCOMPARE(listener.arrived, QByteArray());
    line.setReporting(true);
    QTRY_COMPARE(listener.arrived, QByteArray("cd"));
    line.close();
    line.setReporting(false); // of a closed line: nothing
    line.open();
    controller.send("ef");
    QTRY_COMPARE(listener.arrived, QByteArray("cdef"));
}

// What the port does not take at once leaves later, in order.
void LinesTest::serialSendsALongRequestIntoAFullPort()
{
    const PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    line.open();
    const QByteArray bytes = flood();
    line.write(bytes);
    line.write("end");
    QByteArray received;
    const auto takeAll = [&] {
        for (QByteArray some = controller.received(); !some.isEmpty(); some = controller.received())
            received += some;
        return received.size();
    };
    QTRY_COMPARE(takeAll(), bytes.size() + 3);
    QCOMPARE(received, bytes + "end");
}

void LinesTest::serialFoundLostWhenLookedInto()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    controller.closeEnd();
    QCOMPARE(line.takeWaiting(), QByteArray());
    QCOMPARE(listener.errors,
             QStringList(line.name() + QLatin1String(": the port was closed or unplugged")));
    QVERIFY(!line.isOpen());
}

void LinesTest::serialNamedByALinkInTheCurrentFolder()
{
    const CurrentFolder folder;
    PseudoTerminal controller;
    QVERIFY(QFile::link(controller.name(), QStringLiteral("kx-line")));
    SerialLine line(QStringLiteral("kx-line"), LineTiming(), QSerialPort::NoParity);
    QCOMPARE(line.name(), folder.path() + QLatin1String("/kx-line"));
    Listener listener(&line);
    line.open();
    QCOMPARE(listener.errors, QStringList());
    QCOMPARE(listener.opened, 1);
    controller.send("reply");
    QTRY_COMPARE(listener.arrived, QByteArray("reply"));
}

void LinesTest::bareNameIsLookedForInDevFirst_data()
{
    QTest::addColumn<QString>("fileHere");
    QTest::addColumn<QString>("portName");
    QTest::addColumn<QString>("start");

    QTest::newRow("nowhere") << "other"
                             << "kx-none"
                             << "/dev/kx-none: cannot open the port: ";
    QTest::newRow("in both") << "null"
                             << "null"
                             << "/dev/null: cannot open the port: ";
}

void LinesTest::bareNameIsLookedForInDevFirst()
{
    QFETCH(QString, fileHere);
    QFETCH(QString, portName);
    QFETCH(QString, start);
    const CurrentFolder folder;
    QVERIFY(QFile(fileHere).open(QIODevice::WriteOnly));
    SerialLine line(portName, LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    QVERIFY2(listener.errors.value(0).startsWith(start), qPrintable(listener.errors.value(0)));
}

void LinesTest::serialThatIsNotThere()
{
    const QString name = QString::fromLatin1("/dev/kx-no-such-port");
    SerialLine line(name, LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    QCOMPARE(listener.opened, 0);
    QCOMPARE(
        listener.errors,
        QStringList(name + QLatin1String(": cannot open the port: No such file or directory")));
}

// The name is locked before the port is looked for.
void LinesTest::serialThatIsNotThereAndTriedByAnother()
{
    // Of this test alone: others may run beside it.
    const QString port = QStringLiteral("kx-tried-port-%1").arg(QCoreApplication::applicationPid());
    const QString name = QLatin1String("/dev/") + port;
    QLockFile lock(QLatin1String("/var/lock/LCK..") + port);
    QVERIFY(lock.tryLock());
    SerialLine line(name, LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    QCOMPARE(
        listener.errors,
        QStringList(name + QLatin1String(": cannot open the port: No such file or directory")));
}

void LinesTest::serialThatGoesAway()
{
    PseudoTerminal controller;
    const QString name = controller.name();
    SerialLine line(name, LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    controller.closeEnd();
    QTRY_COMPARE(listener.errors.size(), 1);
    QCOMPARE(listener.errors.first(), name + QLatin1String(": the port was closed or unplugged"));
    QVERIFY(!line.isOpen());
}

void LinesTest::networkCarriesBytesBothWays()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    Listener listener(&line);
    line.open();
    QTRY_COMPARE(listener.opened, 1);
    QVERIFY(line.isOpen());
    QCOMPARE(line.name(), QString::fromLatin1("127.0.0.1:%1").arg(gateway.serverPort()));
    QCOMPARE(line.timing().frameGap(), qint64(0));
    QTRY_VERIFY(gateway.hasPendingConnections());
    QTcpSocket* const peer = gateway.nextPendingConnection();
    line.write("request");
    QByteArray received;
    QTRY_COMPARE(received += peer->readAll(), QByteArray("request"));
    peer->write("reply");
    QTRY_COMPARE(listener.arrived, QByteArray("reply"));
}

void LinesTest::networkSendsWithoutAnEventLoop()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    line.open();
    QTRY_VERIFY(line.isOpen() && gateway.hasPendingConnections());
    QTcpSocket* const peer = gateway.nextPendingConnection();
    line.write("request");
    QVERIFY(peer->waitForReadyRead(2000));
    QCOMPARE(peer->readAll(), QByteArray("request"));
}

void LinesTest::networkGivesWhatWaits()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    QCOMPARE(line.takeWaiting(), QByteArray());
    Listener listener(&line);
    line.open();
    QTRY_VERIFY(line.isOpen() && gateway.hasPendingConnections());
    QTcpSocket* const peer = gateway.nextPendingConnection();
    QCOMPARE(line.takeWaiting(), QByteArray());
    peer->write("reply");
    QVERIFY(peer->flush());
    QByteArray taken;
    for (int i = 0; i < 2000 && taken.isEmpty(); ++i) {
        QTest::qSleep(1);
        taken = line.takeWaiting();
    }
    QCOMPARE(taken, QByteArray("reply"));
    QCOMPARE(line.takeWaiting(), QByteArray());
    QTest::qWait(20);
    QCOMPARE(listener.arrived, QByteArray());
    peer->write("next");
    QTRY_COMPARE(listener.arrived, QByteArray("next"));
    QCOMPARE(listener.errors, QStringList());
    QVERIFY(line.isOpen());
}

void LinesTest::networkFoundLostWhenLookedInto()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    Listener listener(&line);
    line.open();
    QTRY_VERIFY(line.isOpen() && gateway.hasPendingConnections());
    gateway.nextPendingConnection()->abort();
    for (int i = 0; i < 2000 && line.isOpen(); ++i) {
        QTest::qSleep(1);
        QCOMPARE(line.takeWaiting(), QByteArray());
    }
    QCOMPARE(listener.errors.size(), 1);
    QVERIFY2(listener.errors.first().contains(QLatin1String(": the connection is lost: ")),
             qPrintable(listener.errors.first()));
}

void LinesTest::networkIsNamedAsItIsTyped()
{
    QCOMPARE(TcpLine(QString::fromLatin1("::1"), 8888).name(), QString::fromLatin1("[::1]:8888"));
    QCOMPARE(TcpLine(QString::fromLatin1("gateway"), 502).name(),
             QString::fromLatin1("gateway:502"));
}

void LinesTest::networkThatRefuses()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    const quint16 port = gateway.serverPort();
    gateway.close();
    TcpLine line(QString::fromLatin1("127.0.0.1"), port);
    Listener listener(&line);
    line.open();
    QTRY_COMPARE(listener.errors.size(), 1);
    QCOMPARE(listener.errors.first(),
             QString::fromLatin1("127.0.0.1:%1: cannot connect: Connection refused").arg(port));
    QCOMPARE(listener.opened, 0);
}

void LinesTest::networkThatDoesNotAnswer()
{
    const FullServer gateway;
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.port());
    Listener listener(&line);
    line.setConnectTimeout(50);
    line.open();
    QTRY_COMPARE(listener.errors.size(), 1);
    QCOMPARE(
        listener.errors.first(),
        QString::fromLatin1("127.0.0.1:%1: no connection within 0.05 seconds").arg(gateway.port()));
    QVERIFY(!line.isOpen());
    QTest::qWait(20);
    QCOMPARE(listener.errors.size(), 1);
    QCOMPARE(listener.opened, 0);
}

void LinesTest::networkThatGoesAway()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    Listener listener(&line);
    line.open();
    QTRY_VERIFY(gateway.hasPendingConnections());
    QTRY_COMPARE(listener.opened, 1);
    gateway.nextPendingConnection()->close();
    QTRY_COMPARE(listener.errors.size(), 1);
    QVERIFY2(listener.errors.first().contains(QLatin1String(": the connection is lost: ")),
             qPrintable(listener.errors.first()));
    QVERIFY(!line.isOpen());
}

void LinesTest::serialFloodIsTakenInPieces()
{
    PseudoTerminal controller;
    SerialLine line(controller.name(), LineTiming(), QSerialPort::NoParity);
    Listener listener(&line);
    line.open();
    const QByteArray bytes = flood();
    int sent = 0;
    QTimer sender;
    connect(&sender, &QTimer::timeout, &sender,
            [&] { sent += controller.sendSome(bytes.mid(sent)); });
    sender.start(0);
    QTRY_COMPARE_WITH_TIMEOUT(listener.arrived.size(), bytes.size(), 20000);
    QVERIFY(listener.arrived == bytes);
    QVERIFY2(listener.longest <= 4096, qPrintable(QString::number(listener.longest)));
}

void LinesTest::networkFloodIsTakenInPieces()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QString::fromLatin1("127.0.0.1"), gateway.serverPort());
    Listener listener(&line);
    line.open();
    QTRY_VERIFY(gateway.hasPendingConnections());
    QTcpSocket* const peer = gateway.nextPendingConnection();
    const QByteArray bytes = flood();
    peer->write(bytes);
    QTRY_COMPARE_WITH_TIMEOUT(listener.arrived.size(), bytes.size(), 20000);
    QVERIFY(listener.arrived == bytes);
    QVERIFY2(listener.longest <= 4096, qPrintable(QString::number(listener.longest)));
}

QTEST_GUILESS_MAIN(LinesTest)
#include "tst_lines.moc"
