// A program that is busy while a reply comes finds the timer of the time-out first: the
// reply lies in the port all the same. So does a connection that stands.

#include "exchange/exchange_loop.h"
#include "exchange/lines/reopening_line.h"
#include "exchange/lines/serial_line.h"
#include "exchange/lines/tcp_line.h"
#include "support/driver_fixture.h"
#include "tools/exchange/lines/pseudo_terminal.h"
#include "tools/exchange/scripted_driver.h"

#include <QtCore/QSocketNotifier>
#include <QtNetwork/QTcpServer>
#include <QtTest/QTest>

using namespace kx;

namespace
{

const int TIMEOUT = 40; // milliseconds
// Station 1, function 3, address 100, quantity 2.
const char* const READ = "01 03 00 64 00 02";
// Station 1, function 3, byte count 4, registers 1234 and 5678.
const char* const GOOD = "01 03 04 04 D2 16 2E";

/// The program's connection to its screen. Sockets come before timers, those that were
/// readable when the program looked: the line's was not when work for the screen came.
class Screen
{
public:
    Screen() { QVERIFY(pipe(m_ends) == 0); }
    ~Screen()
    {
        close(m_ends[0]);
        close(m_ends[1]);
    }
    void ask() const { QCOMPARE(write(m_ends[1], "x", 1), ssize_t(1)); }
    void take() const
    {
        char work = 0;
        QCOMPARE(read(m_ends[0], &work, 1), ssize_t(1));
    }
    int socket() const { return m_ends[0]; }

private:
    int m_ends[2];
};

/// Gives the screen work with each request.
template <class Base>
class WorkingLine : public Base
{
public:
    using Base::Base;

    void write(const QByteArray& bytes) override
    {
        Base::write(bytes);
        screen->ask();
    }

    const Screen* screen = nullptr;
};

using WorkingSerialLine = WorkingLine<SerialLine>;
using WorkingTcpLine = WorkingLine<TcpLine>;

} // namespace

class BusyProgramTest : public QObject
{
    Q_OBJECT

private slots:
    void aReplyInASerialPortIsTaken();
    void aReplyInAPortThatIsReopenedIsTaken();
    void aReplyFromANetworkIsTaken();
    void aConnectionThatStandsIsTaken();

private:
    void exchange(Line* line, const std::function<void()>& controller);
    std::unique_ptr<WorkingSerialLine> serialLine(const QString& portName);

    Screen m_screen;
};

/// One request, answered while the program is busy until after the time-out.
void BusyProgramTest::exchange(Line* line, const std::function<void()>& controller)
{
    ScriptedDriver scripted;
    scripted.request(withCrc(READ), 9);
    QSocketNotifier screen(m_screen.socket(), QSocketNotifier::Read);
    connect(&screen, &QSocketNotifier::activated, &screen, [&] {
        m_screen.take();
        controller();
        QTest::qSleep(2 * TIMEOUT);
    });
    QTimer animation; // with a timer due, all timers are looked at behind the sockets
    animation.start(0);
    QList<ReplyKind> kinds;
    ExchangeLoop loop(scripted.entryPoints(), line, {TIMEOUT, 100, 5, -1, 0});
    connect(&loop, &ExchangeLoop::exchanged, &loop,
            [&](const ExchangeRecord& record) { kinds << record.replyKind; });
    loop.start();
    QTRY_VERIFY(!kinds.isEmpty());
    QCOMPARE(scripted.replies, QList<QByteArray>({withCrc(GOOD)}));
    QVERIFY(kinds.first() == ReplyKind::Good);
}

std::unique_ptr<WorkingSerialLine> BusyProgramTest::serialLine(const QString& portName)
{
    auto line = std::make_unique<WorkingSerialLine>(portName, LineTiming(), QSerialPort::NoParity);
    line->screen = &m_screen;
    return line;
}

void BusyProgramTest::aReplyInASerialPortIsTaken()
{
    const PseudoTerminal controller;
    const auto line = serialLine(controller.name());
    line->open();
    exchange(line.get(), [&] {
        QCOMPARE(controller.awaited(), withCrc(READ));
        controller.deliver(withCrc(GOOD));
    });
}

void BusyProgramTest::aReplyInAPortThatIsReopenedIsTaken()
{
    const PseudoTerminal controller;
    ReopeningLine line(serialLine(controller.name()), 1000);
    line.open();
    exchange(&line, [&] {
        QCOMPARE(controller.awaited(), withCrc(READ));
        controller.deliver(withCrc(GOOD));
    });
}

void BusyProgramTest::aReplyFromANetworkIsTaken()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    WorkingTcpLine line(QStringLiteral("127.0.0.1"), gateway.serverPort());
    line.screen = &m_screen;
    line.open();
    QTRY_VERIFY(line.isOpen() && gateway.hasPendingConnections());
    QTcpSocket* const peer = gateway.nextPendingConnection();
    exchange(&line, [&] {
        QVERIFY(peer->bytesAvailable() > 0 || peer->waitForReadyRead(2000));
        QCOMPARE(peer->readAll(), withCrc(READ));
        peer->write(withCrc(GOOD));
        QVERIFY(peer->flush());
    });
}

void BusyProgramTest::aConnectionThatStandsIsTaken()
{
    QTcpServer gateway;
    QVERIFY(gateway.listen(QHostAddress::LocalHost));
    TcpLine line(QStringLiteral("127.0.0.1"), gateway.serverPort());
    line.setConnectTimeout(TIMEOUT);
    QStringList told;
    connect(&line, &Line::opened, this, [&] { told << QStringLiteral("opened"); });
    connect(&line, &Line::failed, this, [&](const QString& error) { told << error; });
    QSocketNotifier screen(m_screen.socket(), QSocketNotifier::Read);
    connect(&screen, &QSocketNotifier::activated, &screen, [&] {
        m_screen.take();
        line.open();
        QTest::qSleep(2 * TIMEOUT);
    });
    QTimer animation;
    animation.start(0);
    m_screen.ask();
    QTRY_COMPARE(told, QStringList(QStringLiteral("opened")));
    QVERIFY(line.isOpen());
}

QTEST_GUILESS_MAIN(BusyProgramTest)
#include "tst_busy_program.moc"
