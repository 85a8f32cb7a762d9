#include "kxhost/console.h"

#include <QtCore/QJsonDocument>

#include <cstdio>
#include <unistd.h>

void print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void printLine(const QString& line)
{
    print(line + QLatin1Char('\n'));
}

void printJson(const QJsonObject& object)
{
    printLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

int complain(const QString& message, int exitCode)
{
    std::fprintf(stderr, "kxhost: %s\n", message.toUtf8().constData());
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
