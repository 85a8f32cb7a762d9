#include "runtime_process.h"

#include <QtCore/QRegularExpression>

const int PATIENCE = 30000; // milliseconds

RuntimeProcess::RuntimeProcess(const QString& program, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_LIBRARY_PATH", KX_DRIVER_FOLDER);
    m_process.setProcessEnvironment(environment);
    m_process.start(program, arguments);
}

RuntimeProcess::~RuntimeProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool RuntimeProcess::isRunning()
{
    return !m_process.waitForFinished(0) && m_process.state() != QProcess::NotRunning;
}

QString RuntimeProcess::readLine()
{
    while (!m_process.canReadLine() && m_process.waitForReadyRead(PATIENCE)) {
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

QStringList RuntimeProcess::readLines()
{
    m_process.waitForFinished(PATIENCE);
    const QString text = QString::fromUtf8(m_process.readAllStandardOutput());
    return text.split('\n').filter(QRegularExpression("."));
}

int RuntimeProcess::exitCode()
{
    m_process.waitForFinished(PATIENCE);
    const bool isOver = m_process.state() == QProcess::NotRunning;
    return isOver && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString RuntimeProcess::errorOutput()
{
    m_process.waitForFinished(PATIENCE);
    return QString::fromUtf8(m_process.readAllStandardError()).trimmed();
}
