#include "kxhost/command_table.h"

#include "kxhost/commands/watch_command.h"

const std::vector<Command>& commands()
{
    static const std::vector<Command> table = {
        {"watch", "show values as they change", "kxhost watch D100:4 M0:8 X10 --port /dev/ttyUSB0",
         runWatch},
    };
    return table;
}

const Command* findCommand(const QString& name)
{
    for (const Command& command : commands()) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

QString helpOfAllCommands()
{
    QString help = QString::fromLatin1("Usage: kxhost COMMAND [options] ...\n"
                                       "Talks to controllers over Modbus RTU.\n\nCommands:\n");
    for (const Command& command : commands())
        help += QString::fromLatin1("  %1 %2\n")
                    .arg(QLatin1String(command.name), -10)
                    .arg(QLatin1String(command.summary));
    help += QLatin1String("\nExamples:\n");
    for (const Command& command : commands())
        help += QString::fromLatin1("  %1\n").arg(QLatin1String(command.example));
    help += QLatin1String("\nkxhost COMMAND --help shows the options of a command.\n");
    return help;
}
