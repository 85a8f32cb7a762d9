#include "kxsim_process.h"

#include "support/process_signal.h"

namespace
{

const int PATIENCE_MILLISECONDS = 30000;

} // namespace

KxsimProcess::KxsimProcess(const QStringList& arguments)
{
    const QString greeting = QStringLiteral("kxsim: listening on ");
    m_process.start(QStringLiteral(KXSIM_PROGRAM), arguments);
    const QString line = readLine();
    if (line.startsWith(greeting))
        m_portName = line.mid(greeting.size());
}

KxsimProcess::~KxsimProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

QString KxsimProcess::ask(const QString& command)
{
    m_process.write(command.toUtf8() + '\n');
    m_process.waitForBytesWritten(PATIENCE_MILLISECONDS);
    return readLine();
}

void KxsimProcess::tell(const QString& command)
{
    ask(command + QStringLiteral("\nfaults"));
}

QString KxsimProcess::lastAnswer(const QString& command)
{
    m_process.write(command.toUtf8());
    m_process.closeWriteChannel();
    return readLine();
}

int KxsimProcess::exitCodeAfter(int signal)
{
    signalProcess(m_process.processId(), signal);
    const bool ended = m_process.state() == QProcess::NotRunning
                       || m_process.waitForFinished(PATIENCE_MILLISECONDS);
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString KxsimProcess::errorOutput()
{
    return QString::fromUtf8(m_process.readAllStandardError());
}

QString KxsimProcess::output()
{
    return QString::fromUtf8(m_process.readAllStandardOutput());
}

QString KxsimProcess::readLine()
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead(PATIENCE_MILLISECONDS)) {
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}
