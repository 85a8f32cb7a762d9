/// kxhost as a process, run to its end by a test.
#ifndef KX_TESTS_TOOLS_KXHOST_COMMANDS_COMMAND_PROCESS_H
#define KX_TESTS_TOOLS_KXHOST_COMMANDS_COMMAND_PROCESS_H

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace kx
{

struct CommandResult {
    int exitCode = -1;  ///< -1: crashed, or did not end within 30 seconds
    QStringList output; ///< lines of standard output
    QStringList errors; ///< lines of standard error
};

CommandResult runCommand(const QStringList& arguments);

/// Arguments separated by single blanks.
CommandResult runCommand(const char* arguments);

} // namespace kx

#endif
