#include "kxhost/terminal/console.h"

#include "kxhost/terminal/interrupt.h"
#include "system/printable_text.h"

#include <QtCore/QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace kx
{

namespace
{

int outputError = 0;

} // namespace

void print(const QString& text)
{
    if (outputError != 0)
        return Interrupt::request(); // there may have been none the first time
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return;
    outputError = errno;
    Interrupt::request();
}

QString outputFailure()
{
    if (outputError == 0)
        return QString();
    return QStringLiteral("cannot write standard output: %1")
        .arg(QString::fromLocal8Bit(std::strerror(outputError)));
}

void say(const QString& line)
{
    print(printableText(line) + QLatin1Char('\n'));
}

void printJson(const QJsonObject& object)
{
    const QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    print(printableJson(QString::fromUtf8(json)) + QLatin1Char('\n'));
}

int complain(const QString& message, int exitCode)
{
    std::fprintf(stderr, "kxhost: %s\n", printableText(message).toUtf8().constData());
    return exitCode;
}

bool isStandardInputTerminal()
{
    return isatty(STDIN_FILENO) != 0;
}

bool isStandardOutputTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}

} // namespace kx
