// The window goes on while its line is being opened, whatever is at the other end; and what is
// being opened is given up at once.

#include "kxpanel/connect/connection_bar.h"
#include "kxpanel/machine/machine_thread.h"
#include "kxpanel/shell/main_window.h"
#include "tools/kxpanel/machine_fixture.h"
#include "tools/silent_resolver.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QLockFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include <arpa/inet.h>
#include <fcntl.h>
#include <memory>
#include <netinet/in.h>
#include <pty.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace kxpanel;

namespace
{

/// Far above what a busy machine takes, and far below what a system waits for.
const qint64 LONG = 10000; // milliseconds

kx::ConnectionOptions gateway(const QString& host, quint16 port)
{
    kx::ConnectionOptions options = simulated();
    options.simulate = false;
    options.gateway = {host, port};
    return options;
}

/// A socket on the loopback interface, not open for connections yet.
int boundSocket(sockaddr_in* address)
{
    const int file = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    *address = {};
    address->sin_family = AF_INET;
    address->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof *address;
    bind(file, reinterpret_cast<sockaddr*>(address), size);
    getsockname(file, reinterpret_cast<sockaddr*>(address), &size);
    return file;
}

/// What is at the other end of a line, until it goes.
class Peer
{
public:
    ~Peer()
    {
        for (const int file : m_files)
            close(file);
    }

    kx::ConnectionOptions refuses()
    {
        sockaddr_in address;
        m_files << boundSocket(&address); // nobody else gets the port, and nobody listens
        return gateway(QStringLiteral("127.0.0.1"), ntohs(address.sin_port));
    }

    kx::ConnectionOptions isSilent()
    {
        sockaddr_in address;
        m_files << boundSocket(&address);
        listen(m_files.last(), 5); // connected by the system, and never looked at
        return gateway(QStringLiteral("127.0.0.1"), ntohs(address.sin_port));
    }

    /// As of a host that is switched off: with as many connections as may wait, the system leaves
    /// others unanswered.
    kx::ConnectionOptions isNotThere()
    {
        sockaddr_in address;
        const int listener = boundSocket(&address);
        m_files << listener;
        listen(listener, 0);
        for (int waiting = 0; waiting < 4; ++waiting) {
            const int file = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
            m_files << file;
            connect(file, reinterpret_cast<sockaddr*>(&address), sizeof address);
        }
        return gateway(QStringLiteral("127.0.0.1"), ntohs(address.sin_port));
    }

    kx::ConnectionOptions isNoPort()
    {
        QFile file(m_folder.filePath(QStringLiteral("file")));
        file.open(QIODevice::WriteOnly);
        return serialPort(file.fileName());
    }

    kx::ConnectionOptions isLocked()
    {
        const QString port = openTerminal();
        m_lock = std::make_unique<QLockFile>(QStringLiteral("/var/lock/LCK..")
                                             + QString(port).mid(5).replace('/', '_'));
        m_lock->tryLock();
        return serialPort(port);
    }

    kx::ConnectionOptions goesAway()
    {
        const QString port = openTerminal();
        close(m_files.takeFirst()); // the controller's end
        return serialPort(port);
    }

private:
    QString openTerminal()
    {
        int ends[2];
        char name[64];
        openpty(&ends[0], &ends[1], name, nullptr, nullptr);
        m_files << ends[0] << ends[1];
        return QString::fromLocal8Bit(name);
    }

    QList<int> m_files;
    QTemporaryDir m_folder;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace

using OptionsOf = std::function<kx::ConnectionOptions(Peer*)>;
Q_DECLARE_METATYPE(OptionsOf)

class WindowConnectingTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanupTestCase() { letResolverAnswer(); }
    void goesOn_data();
    void goesOn();
};

void WindowConnectingTest::goesOn_data()
{
    QTest::addColumn<OptionsOf>("optionsOf");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* situation, const OptionsOf& optionsOf, const char* state,
                        const char* fault) {
        QTest::newRow(situation) << optionsOf << QString(state) << QString(fault);
    };
    row(
        "a name that nobody knows", [](Peer*) { return gateway("nobody.example", 502); }, "failed",
        "nobody.example:502: cannot connect: Host not found");
    row(
        "a name server that does not answer", [](Peer*) { return gateway("silent.example", 502); },
        "connecting", "");
    row(
        "a host that is not there", [](Peer* peer) { return peer->isNotThere(); }, "connecting",
        "");
    row(
        "a gateway that refuses", [](Peer* peer) { return peer->refuses(); }, "failed",
        "cannot connect: Connection refused");
    row(
        "a gateway that accepts and is silent", [](Peer* peer) { return peer->isSilent(); },
        "faulty", "station 1 does not answer");
    row(
        "a file that is no port", [](Peer* peer) { return peer->isNoPort(); }, "failed",
        "cannot open the port");
    row(
        "a port that is in use", [](Peer* peer) { return peer->isLocked(); }, "failed",
        "cannot open the port");
    row(
        "a port whose other end is gone", [](Peer* peer) { return peer->goesAway(); }, "failed",
        "cannot open the port");
}

void WindowConnectingTest::goesOn()
{
    QFETCH(OptionsOf, optionsOf);
    QFETCH(QString, state);
    QFETCH(QString, fault);
    Peer peer;
    QTemporaryDir folder;
    QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
    auto machine = std::make_unique<MachineThread>();
    auto window = std::make_unique<MainWindow>(machine->machine(), &settings, pageMakers());
    window->tags()->insert(0, {watched(1, "D110").tag});
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));

    QTimer ticks;
    QElapsedTimer sinceTick;
    qint64 longest = 0; // between two ticks
    connect(&ticks, &QTimer::timeout, this, [&] { longest = qMax(longest, sinceTick.restart()); });
    ticks.start(5);
    sinceTick.start();
    WindowOptions options;
    options.connection = optionsOf(&peer);
    options.connection.session.exchange.replyTimeout = 50;
    options.connects = true;
    window->begin(options);
    const auto* const stateLabel = window->findChild<QLabel*>(QStringLiteral("lineState"));
    const auto* const faultLabel = window->findChild<QLabel*>(QStringLiteral("lineFault"));
    QTRY_VERIFY2(stateLabel->text().endsWith(state), qPrintable(stateLabel->text()));
    QTRY_VERIFY2(faultLabel->text().contains(fault), qPrintable(faultLabel->text()));
    QTest::qWait(300);
    QVERIFY2(stateLabel->text().endsWith(state), qPrintable(stateLabel->text()));
    longest = qMax(longest, sinceTick.elapsed());
    QVERIFY2(longest < LONG, qPrintable(QString::number(longest)));

    QElapsedTimer ending;
    ending.start();
    window->connectionBar()->disconnectLine();
    QTRY_COMPARE(window->connectionBar()->status().state, LineState::Closed);
    QVERIFY2(ending.elapsed() < LONG, qPrintable(QString::number(ending.elapsed())));
    window->connectionBar()->connectLine(); // and once more, to be closed amid it
    QTest::qWait(50);
    ending.restart();
    machine->stop();
    window.reset();
    QVERIFY2(ending.elapsed() < LONG, qPrintable(QString::number(ending.elapsed())));
}

QTEST_MAIN(WindowConnectingTest)
#include "tst_window_connecting.moc"
