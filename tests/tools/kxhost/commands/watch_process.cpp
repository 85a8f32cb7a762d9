#include "watch_process.h"

#include "support/process_signal.h"

#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

namespace kx
{

namespace
{

const int PATIENCE = 30000; // milliseconds

} // namespace

QStringList on(const KxsimProcess& simulator, const char* arguments)
{
    return QString::fromLatin1(arguments).split(QLatin1Char(' '))
           << QString::fromLatin1("--port") << simulator.portName();
}

QStringList presets(const char* assignments)
{
    QStringList arguments;
    for (const QString& assignment : QString::fromLatin1(assignments).split(QLatin1Char(' ')))
        arguments << QString::fromLatin1("--set") << assignment;
    return arguments;
}

QStringList withoutTimes(const QStringList& lines)
{
    QStringList cut;
    for (const QString& line : lines)
        cut << line.section(QLatin1Char(' '), 1);
    return cut;
}

bool holds(const QStringList& lines, const char* text)
{
    return !lines.filter(QString::fromLatin1(text)).isEmpty();
}

RunningWatch::RunningWatch(const QStringList& arguments)
{
    m_process.start(QString::fromLatin1(KX_HOST_PROGRAM), arguments);
}

RunningWatch::~RunningWatch()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool RunningWatch::waitForOutput(const char* text)
{
    return QTest::qWaitFor([&] { return output().contains(text); }, PATIENCE);
}

bool RunningWatch::waitForOutputEnd(const char* text)
{
    return QTest::qWaitFor([&] { return output().endsWith(text); }, PATIENCE);
}

int RunningWatch::exitCode()
{
    const bool ended =
        QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning; }, PATIENCE);
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

void RunningWatch::sendSignal(int signal)
{
    signalProcess(m_process.processId(), signal);
}

QByteArray RunningWatch::output()
{
    m_output += m_process.readAllStandardOutput();
    return m_output;
}

Gateway::Gateway(const KxsimProcess& simulator)
    : m_serial(simulator.portName(), LineTiming(), QSerialPort::NoParity)
{
    m_server.listen(QHostAddress::LocalHost);
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_serial, [this] { accept(); });
    m_serial.open();
}

QString Gateway::address() const
{
    return QString::fromLatin1("127.0.0.1:%1").arg(m_server.serverPort());
}

void Gateway::accept()
{
    QTcpSocket* const peer = m_server.nextPendingConnection();
    QObject::connect(peer, &QTcpSocket::readyRead, &m_serial,
                     [this, peer] { m_serial.write(peer->readAll()); });
    QObject::connect(&m_serial, &Line::bytesArrived, peer, [this, peer](const QByteArray& bytes) {
        if (!isSilent)
            peer->write(bytes);
    });
}

} // namespace kx
