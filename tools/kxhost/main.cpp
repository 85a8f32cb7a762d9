#include "kxhost/command_table.h"
#include "kxhost/console.h"
#include "kxhost/exit_codes.h"

#include <QtCore/QCoreApplication>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.isEmpty())
        return complain(QLatin1String("no command; kxhost --help lists them"), EXIT_WRONG_USAGE);
    const QString name = arguments.first();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print(helpOfAllCommands());
        return EXIT_FINE;
    }
    const Command* const command = findCommand(name);
    if (!command)
        return complain(
            QString::fromLatin1("unknown command '%1'; kxhost --help lists them").arg(name),
            EXIT_WRONG_USAGE);
    return command->run(arguments.mid(1));
}
