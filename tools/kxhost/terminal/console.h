/// Standard output and standard error of the program.
#ifndef KX_KXHOST_TERMINAL_CONSOLE_H
#define KX_KXHOST_TERMINAL_CONSOLE_H

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace kx
{

/// Writes to standard output at once, controls of the terminal included. When that
/// fails, nothing more is written and the command is interrupted, as by Ctrl-C.
void print(const QString& text);
/// One line, in which no character controls the terminal: see printableText().
void say(const QString& line);
/// One object on one line.
void printJson(const QJsonObject& object);

/// Why standard output could not be written; empty when all went well.
QString outputFailure();

/// Writes "kxhost: MESSAGE" to standard error, as say(); returns `exitCode`.
int complain(const QString& message, int exitCode);

bool isStandardInputTerminal();
bool isStandardOutputTerminal();

} // namespace kx

#endif
