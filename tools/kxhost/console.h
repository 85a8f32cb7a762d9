/// Standard output and standard error of the program.
#ifndef KX_TOOLS_CONSOLE_H
#define KX_TOOLS_CONSOLE_H

#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// Writes to standard output at once. When that fails, nothing more is written and
/// the command is interrupted, as by Ctrl-C.
void print(const QString& text);
void printLine(const QString& line);
/// One object on one line.
void printJson(const QJsonObject& object);

/// Why standard output could not be written; empty when all went well.
QString outputFailure();

/// Writes "kxhost: MESSAGE" to standard error; returns `exitCode`.
int complain(const QString& message, int exitCode);

bool isStandardInputTerminal();
bool isStandardOutputTerminal();

#endif
