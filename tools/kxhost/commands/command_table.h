#ifndef KX_KXHOST_COMMANDS_COMMAND_TABLE_H
#define KX_KXHOST_COMMANDS_COMMAND_TABLE_H

#include <QtCore/QStringList>

#include <vector>

namespace kx
{

struct Command {
    const char* name;
    const char* summary; ///< one line without a full stop
    const char* example; ///< one line as a user types it
    /// Gets what follows the command's name; returns an ExitCode.
    int (*run)(const QStringList& arguments);
};

/// All commands, in the order in which the help shows them.
const std::vector<Command>& commands();

/// The command of that name, or null.
const Command* findCommand(const QString& name);

/// The text of `kxhost --help`.
QString helpOfAllCommands();

} // namespace kx

#endif
