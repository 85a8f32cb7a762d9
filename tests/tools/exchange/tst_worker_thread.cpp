// A connection and an exchange loop that were moved to another thread: all of them went.

#include "exchange/connection.h"
#include "exchange/exchange_loop.h"
#include "support/driver_fixture.h"
#include "tools/exchange/lines/pseudo_terminal.h"
#include "tools/exchange/scripted_driver.h"

#include <QtCore/QThread>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

using namespace kx;

namespace
{

// Station 1, function 3, address 100, quantity 2.
const char* const READ = "01 03 00 64 00 02";
// Station 1, function 3, byte count 4, registers 1234 and 5678.
const char* const GOOD = "01 03 04 04 D2 16 2E";

/// Qt warns when a timer or notifier is used from a thread that is not its own.
class Warnings
{
public:
    Warnings()
    {
        messages.clear();
        qInstallMessageHandler(take);
    }
    ~Warnings() { qInstallMessageHandler(nullptr); }
    static QStringList all()
    {
        const QMutexLocker lock(&mutex);
        return messages;
    }

private:
    static void take(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                     const QString& message)
    {
        const QMutexLocker lock(&mutex);
        messages << message;
    }

    static QMutex mutex;
    static QStringList messages;
};

QMutex Warnings::mutex;
QStringList Warnings::messages;

/// Ends with what was moved to it.
class Worker : public QThread
{
public:
    Worker() { start(); }
    ~Worker() override { end(); }

    void adopt(QObject* object)
    {
        object->moveToThread(this);
        connect(this, &QThread::finished, object, &QObject::deleteLater);
    }
    void end()
    {
        quit();
        wait();
    }
};

/// The other end of a line, in the thread of the test.
class Controller
{
public:
    Controller() { server.listen(QHostAddress::LocalHost); }

    ConnectionSettings settings(bool isGateway, int patience) const
    {
        ConnectionSettings settings;
        settings.port = terminal.name();
        settings.timing.baud = 921600;
        settings.patience = patience;
        if (isGateway)
            settings.gateway = {QStringLiteral("127.0.0.1"), server.serverPort()};
        return settings;
    }

    QByteArray received()
    {
        if (server.hasPendingConnections())
            peer = server.nextPendingConnection();
        return peer ? peer->readAll() : terminal.received();
    }

    void send(const QByteArray& bytes)
    {
        if (peer)
            peer->write(bytes);
        else
            terminal.send(bytes);
    }

    void leave()
    {
        server.close(); // first, else the line may connect to it once more
        if (peer)
            peer->abort();
        terminal.closeEnd();
    }

private:
    PseudoTerminal terminal;
    QTcpServer server;
    QTcpSocket* peer = nullptr;
};

} // namespace

class WorkerThreadTest : public QObject
{
    Q_OBJECT

private slots:
    void nothingStaysBehind_data();
    void nothingStaysBehind();
};

void WorkerThreadTest::nothingStaysBehind_data()
{
    QTest::addColumn<bool>("isGateway");
    QTest::addColumn<int>("patience");
    QTest::newRow("a serial port") << false << 0;
    QTest::newRow("a serial port that is opened again") << false << 1000;
    QTest::newRow("a gateway") << true << 0;
    QTest::newRow("a gateway that is connected to again") << true << 1000;
}

void WorkerThreadTest::nothingStaysBehind()
{
    QFETCH(bool, isGateway);
    QFETCH(int, patience);
    const Warnings warnings;
    Controller controller;
    ScriptedDriver scripted;
    scripted.results = {1, 8, 2};
    scripted.request(withCrc(READ), 9);
    scripted.request(withCrc(READ), 9);
    QList<ExchangeRecord> records;
    QList<QThread*> threads;
    Worker worker;
    auto* const connection = new Connection(controller.settings(isGateway, patience));
    auto* const loop = new ExchangeLoop(scripted.entryPoints(), connection->line(),
                                        ExchangeSettings{1500, 100, 5, -1, 0});
    worker.adopt(loop);
    worker.adopt(connection);
    connect(loop, &ExchangeLoop::exchanged, this,
            [&](const ExchangeRecord& record) { records << record; });
    connect(loop, &ExchangeLoop::exchanged, loop, [&] { threads << QThread::currentThread(); });
    connect(connection, &Connection::opened, loop, &ExchangeLoop::start);
    QStringList losses;
    connect(connection, &Connection::interrupted, this,
            [&] { losses << QStringLiteral("interrupted"); });
    connect(connection, &Connection::failed, this,
            [&](const Failure& failure) { losses << failure.text; });
    QMetaObject::invokeMethod(connection, &Connection::open, Qt::QueuedConnection);

    QByteArray received;
    QTRY_COMPARE(received += controller.received(), withCrc(READ));
    controller.send(withCrc(GOOD));
    QTRY_COMPARE(received += controller.received(), withCrc(READ) + withCrc(READ));
    controller.send(QByteArray(4000, '\x55')); // more than is read at once
    controller.send(QByteArray(4000, '\x55'));
    QTRY_COMPARE(static_cast<int>(records.size()), 3);
    QVERIFY(records.at(0).replyKind == ReplyKind::Good);
    QVERIFY(records.at(1).replyKind == ReplyKind::Bad);
    QVERIFY(records.at(2).replyKind == ReplyKind::None);
    controller.leave();
    QTRY_VERIFY(!losses.isEmpty()); // a busy machine may see that the line is given up, too
    QCOMPARE(losses.first() == QStringLiteral("interrupted"), patience > 0);
    worker.end();
    QCOMPARE(threads, QList<QThread*>({&worker, &worker, &worker}));
    QCOMPARE(Warnings::all(), QStringList());
}

QTEST_GUILESS_MAIN(WorkerThreadTest)
#include "tst_worker_thread.moc"
