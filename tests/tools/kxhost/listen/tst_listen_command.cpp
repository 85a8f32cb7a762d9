// kxhost listen beside kxhost and a simulated controller: the test carries what the two say to
// each other and lets a third terminal hear it.

#include "tools/exchange/lines/pseudo_terminal.h"
#include "tools/kxhost/commands/command_process.h"
#include "tools/kxhost/commands/watch_process.h"

#include "support/driver_fixture.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

#include <csignal>

using namespace kx;

namespace
{

/// The line between a master's terminal and a simulator.
class HeardLine
{
public:
    explicit HeardLine(const KxsimProcess& simulator)
        : m_simulator(simulator.portName(), LineTiming(), QSerialPort::NoParity)
    {
        QObject::connect(&m_poll, &QTimer::timeout, [this] { carryRequest(); });
        QObject::connect(&m_simulator, &Line::bytesArrived, &m_poll,
                         [this](const QByteArray& bytes) {
                             master.send(bytes);
                             listener.send(bytes);
                         });
        m_simulator.open();
        m_poll.start(1);
    }

    PseudoTerminal master;
    PseudoTerminal listener;

private:
    void carryRequest()
    {
        const QByteArray bytes = master.received();
        if (bytes.isEmpty())
            return;
        listener.send(bytes);
        m_simulator.write(bytes);
    }

    SerialLine m_simulator;
    QTimer m_poll;
};

QStringList words(const char* arguments, const PseudoTerminal& terminal)
{
    return QString::fromLatin1(arguments).split(QLatin1Char(' '))
           << QString::fromLatin1("--port") << terminal.name();
}

/// Lines without the time that they begin with and the response time that they end with.
QStringList heardLines(const QByteArray& output)
{
    QStringList lines;
    const QRegularExpression heard(QLatin1String("^[0-9-]+T[0-9:.]+ (.*?)(, [0-9.]+ ms)?$"));
    for (const QString& line : QString::fromUtf8(output).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = heard.match(line);
        if (match.hasMatch())
            lines << match.captured(1);
    }
    return lines;
}

QJsonObject jsonOf(const QByteArray& line)
{
    return QJsonDocument::fromJson(line).object();
}

} // namespace

class ListenCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void hearsAMasterAndItsController();
    void jsonAndCapture();
    void framesAreShown();
    void sendsNothing();
    void opensThePortForReadingAlone();
    void endsAfterItsTime();
    void aLostPortEndsIt();
    void bytesWithoutAFrameAreToldApartFromSilence();
    void wrongUsage_data();
    void wrongUsage();

private:
    QTemporaryDir m_folder;
};

void ListenCommandTest::hearsAMasterAndItsController()
{
    const KxsimProcess simulator(presets("D100=1234 X17=1 32CV200=100000")
                                 << QString::fromLatin1("--still"));
    HeardLine line(simulator);
    RunningWatch listening(words("listen", line.listener));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    RunningWatch reading(words("read D100:2 X17 32CV200 --timeout 9000", line.master));
    QCOMPARE(reading.exitCode(), 0);
    RunningWatch writing(words("write Y10=1 D200=1,2,3 --timeout 9000", line.master));
    QCOMPARE(writing.exitCode(), 0);
    RunningWatch asking(words("read D0@9 --timeout 50 --retries 1", line.master));
    QCOMPARE(asking.exitCode(), 1);
    QVERIFY(listening.waitForOutput(" 9 read D0: no reply\n"));
    listening.sendSignal(SIGINT);
    QCOMPARE(listening.exitCode(), 0);
    QStringList heard = heardLines(listening.output());
    heard.sort(); // the runtime reads in an order of its own
    QCOMPARE(heard, QStringList({
                        QString::fromLatin1("1 read 32CV200 = 100000"),
                        QString::fromLatin1("1 read D100:2 = 1234 0"),
                        QString::fromLatin1("1 read X17 = 1"),
                        QString::fromLatin1("1 write D200:3 = 1 2 3"),
                        QString::fromLatin1("1 write Y10 = 1"),
                        QString::fromLatin1("9 read D0: no reply"),
                    }));
    QVERIFY(listening.output().contains("\n      1         5         5        0         0 "));
    QVERIFY(listening.output().contains("\n      9         1         0        0         1 "));
}

void ListenCommandTest::jsonAndCapture()
{
    const KxsimProcess simulator(presets("D100=1234") << QString::fromLatin1("--still"));
    HeardLine line(simulator);
    const QString file = m_folder.filePath(QString::fromLatin1("line.pcap"));
    RunningWatch listening(words("listen --json", line.listener)
                           << QLatin1String("--pcap") << file);
    QVERIFY(listening.waitForOutput("\"listening\""));
    RunningWatch reading(words("read D100", line.master));
    QCOMPARE(reading.exitCode(), 0);
    QVERIFY(listening.waitForOutput("\"answered\""));
    listening.sendSignal(SIGTERM);
    QCOMPARE(listening.exitCode(), 0);
    const QList<QByteArray> lines = listening.output().split('\n');
    QCOMPARE(lines.size(), 4); // the last one is empty
    const QJsonObject heard = jsonOf(lines.at(1));
    QCOMPARE(heard.value(QLatin1String("station")).toInt(), 1);
    QCOMPARE(heard.value(QLatin1String("reply")).toString(),
             QString::fromLatin1("01 03 02 04 D2 3A D9"));
    QCOMPARE(jsonOf(lines.at(2)).value(QLatin1String("frames")).toInt(), 2);
    QFile capture(file);
    QVERIFY(capture.open(QIODevice::ReadOnly));
    const QByteArray packets = capture.readAll();
    QCOMPARE(packets.size(), 24 + 16 + 48 + 16 + 47); // header; a request, a reply of 7 bytes
    QVERIFY(packets.contains(bytes("01 03 00 64 00 01 C5 D5")));
    QVERIFY(packets.endsWith(bytes("01 03 02 04 D2 3A D9")));
}

void ListenCommandTest::framesAreShown()
{
    const PseudoTerminal terminal;
    RunningWatch listening(words("listen --frames", terminal));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    terminal.send(bytes("01 03 00 64 00 01 C5 D5") + bytes("01 03 02 04 D2 3A D9"));
    // Read in one go, it has no response time.
    QVERIFY(listening.waitForOutput(
        " 1 read D100 = 1234\n"
        "  request station 01, function 03, address 00 64, quantity 00 01, CRC C5 D5\n"
        "  reply   station 01, function 03, byte count 02, data 04 D2, CRC 3A D9\n"));
}

void ListenCommandTest::sendsNothing()
{
    const PseudoTerminal terminal;
    RunningWatch listening(words("listen", terminal));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    terminal.send(bytes("01 03 00 64 00 01 C5 D5"));
    QVERIFY(listening.waitForOutput(": no reply\n"));
    QCOMPARE(terminal.received(), QByteArray());
}

void ListenCommandTest::opensThePortForReadingAlone()
{
    const KxsimProcess simulator;
    RunningWatch listening(on(simulator, "listen"));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    const QString process = QString::fromLatin1("/proc/%1/").arg(listening.processId());
    QList<int> modes;
    for (const QFileInfo& link :
         QDir(process + QLatin1String("fd")).entryInfoList(QDir::Files | QDir::System)) {
        QFile info(process + QLatin1String("fdinfo/") + link.fileName());
        if (link.symLinkTarget() != simulator.portName() || !info.open(QIODevice::ReadOnly))
            continue;
        const QByteArray flags = info.readAll().split('\n').at(1); // "flags:\t0102000"
        modes << (flags.split('\t').last().toInt(nullptr, 8) & O_ACCMODE);
    }
    QCOMPARE(modes, QList<int>({O_RDONLY}));
}

void ListenCommandTest::endsAfterItsTime()
{
    const PseudoTerminal terminal;
    RunningWatch listening(words("listen --seconds 1", terminal));
    QCOMPARE(listening.exitCode(), 1);
    QCOMPARE(listening.errors(),
             QByteArray("kxhost: " + terminal.name().toUtf8() + ": nothing was heard\n"));
    QVERIFY(listening.output().contains(", 0 bytes, 0 frames, line load 0.0 %\n"));
}

void ListenCommandTest::bytesWithoutAFrameAreToldApartFromSilence()
{
    const PseudoTerminal terminal;
    RunningWatch listening(words("listen", terminal));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    terminal.send(bytes("F8 00 F8"));
    QVERIFY(listening.waitForOutput(" 3 bytes in no frame: F8 00 F8\n"));
    listening.sendSignal(SIGINT);
    QCOMPARE(listening.exitCode(), 1);
    QCOMPARE(listening.errors(),
             QByteArray("kxhost: " + terminal.name().toUtf8()
                        + ": no frame in what was heard; check --baud and --parity\n"));
}

void ListenCommandTest::aLostPortEndsIt()
{
    auto simulator = std::make_unique<KxsimProcess>();
    RunningWatch listening(on(*simulator, "listen"));
    QVERIFY(listening.waitForOutput("; Ctrl-C ends\n"));
    simulator.reset();
    QCOMPARE(listening.exitCode(), 1);
    QVERIFY(listening.errors().endsWith(": the port was closed or unplugged\n"));
    QVERIFY(listening.output().contains("gap of 3.65 ms before requests: "));
}

void ListenCommandTest::wrongUsage_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const char* arguments, int exitCode, const char* error) {
        QTest::newRow(name) << QByteArray(arguments) << exitCode << QString::fromLatin1(error);
    };
    row("no port", "listen", 2, "kxhost: no line; name the port to listen at with --port");
    row("a network", "listen --tcp 127.0.0.1", 2,
        "kxhost: unknown option 'tcp'; kxhost listen --help shows the options");
    row("a capture that cannot be written", "listen --port /dev/null --pcap /none/a.pcap", 2,
        "kxhost: /none/a.pcap: cannot write the capture: No such file or directory");
    row("no such port", "listen --port /dev/none", 3,
        "kxhost: /dev/none: cannot open the port: No such file or directory");
}

void ListenCommandTest::wrongUsage()
{
    QFETCH(QByteArray, arguments);
    const CommandResult result = runCommand(arguments.constData());
    QTEST(result.exitCode, "exitCode");
    QCOMPARE(result.errors.size(), 1);
    QTEST(result.errors.first(), "error");
    QCOMPARE(result.output, QStringList());
}

QTEST_GUILESS_MAIN(ListenCommandTest)
#include "tst_listen_command.moc"
