#include "kxhost/commands/commands.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/ports/ports_text.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

namespace kx
{

namespace
{

const CommandHelp PORTS_HELP = {
    "ports [options]",
    "Shows the serial ports, what they are, and which programs have them open; of running\n"
    "simulators, kxsim, the pseudo-terminals. Opens no port. Exit code 0, also when there\n"
    "are none.",
    "kxhost ports\n"
    "kxhost ports --json"};

} // namespace

int runPorts(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({QLatin1String("json"), QLatin1String("Write JSON, an object per line.")});
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, PORTS_HELP, &exitCode))
        return exitCode;
    if (!parser.positionalArguments().isEmpty())
        return complain(QStringLiteral("%1: unexpected; ports shows all there are")
                            .arg(parser.positionalArguments().first()),
                        EXIT_WRONG_USAGE);
    const OpenDevices devices;
    const QList<PortEntry> ports = listedPorts(devices);
    if (parser.isSet(QLatin1String("json"))) {
        for (const PortEntry& entry : ports)
            printJson(portJson(entry, devices.hasUnseen()));
        return EXIT_FINE;
    }
    for (const QString& row : portRows(ports, devices.hasUnseen()))
        say(row);
    return EXIT_FINE;
}

} // namespace kx
