#include "kxhost/commands/command_table.h"
#include "kxhost/commands/version_text.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "system/prompt_end.h"
#include "system/standard_streams.h"

#include <QtCore/QCoreApplication>

using namespace kx;

namespace
{

bool isSwitch(const QString& argument)
{
    return argument == QLatin1String("--simulate") || argument == QLatin1String("--json")
           || argument == QStringLiteral("--frames");
}

int showVersion(const QString& option, const QStringList& leading, QStringList behind)
{
    const QString json = QStringLiteral("--json");
    const bool asJson = leading.contains(json) || behind.contains(json);
    behind.removeAll(json);
    if (!behind.isEmpty())
        return complain(
            QStringLiteral("unexpected argument '%1' behind '%2'").arg(behind.first(), option),
            EXIT_WRONG_USAGE);
    if (asJson)
        printJson(versionJson());
    else
        print(versionText());
    return EXIT_FINE;
}

int runCommand(QStringList arguments)
{
    // Options without a value may stand in front of the command: kxhost --simulate read D0.
    QStringList leading;
    while (arguments.size() > 1 && isSwitch(arguments.first()))
        leading << arguments.takeFirst();
    if (arguments.isEmpty())
        return complain(QLatin1String("no command; kxhost --help lists the commands"),
                        EXIT_WRONG_USAGE);
    const QString name = arguments.first();
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        print(helpOfAllCommands());
        return EXIT_FINE;
    }
    if (name == QLatin1String("--version") || name == QLatin1String("-v"))
        return showVersion(name, leading, arguments.mid(1));
    const Command* const command = findCommand(name);
    if (!command)
        return complain(
            QStringLiteral("unknown command '%1'; kxhost --help lists the commands").arg(name),
            EXIT_WRONG_USAGE);
    return command->run(leading + arguments.mid(1));
}

} // namespace

int main(int argc, char* argv[])
{
    occupyClosedStreams();
    // Qt's own event loop knows sockets and timers alone, at half of the cost for each wake-up.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    int exitCode = runCommand(QCoreApplication::arguments().mid(1));
    const QString failure = outputFailure();
    if (!failure.isEmpty())
        exitCode = complain(failure, exitCode == EXIT_FINE ? EXIT_DEVICE_FAILED : exitCode);
    endSoon(exitCode);
    return exitCode;
}
