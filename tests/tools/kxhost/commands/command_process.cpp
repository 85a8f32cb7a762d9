#include "command_process.h"

#include <QtCore/QProcess>

namespace kx
{

namespace
{

const int LONGEST_RUN = 30000; // milliseconds

QStringList linesOf(const QByteArray& bytes)
{
    QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

} // namespace

CommandResult runCommand(const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLatin1(KX_HOST_PROGRAM), arguments);
    CommandResult result;
    if (process.waitForFinished(LONGEST_RUN) && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.output = linesOf(process.readAllStandardOutput());
    result.errors = linesOf(process.readAllStandardError());
    return result;
}

CommandResult runCommand(const char* arguments)
{
    return runCommand(QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

} // namespace kx
