#include "kxhost/commands/watch_command.h"

#include "kxhost/command_line.h"
#include "kxhost/connection.h"
#include "kxhost/console.h"
#include "kxhost/exit_codes.h"
#include "kxhost/interrupt.h"
#include "kxhost/line_views.h"
#include "kxhost/watch_run.h"

#include <QtCore/QCoreApplication>

#include <limits>

namespace
{

const CommandHelp HELP = {
    "watch [options] ADDRESS...",
    "Reads the addresses in cycles and shows their values.\n"
    "An address is TYPE NUMBER[:COUNT][@STATION]; X and Y are octal. A cycle is over\n"
    "when every request of the list was answered or has failed once. Ends with 1 when\n"
    "an address was never read or its last read failed, or when the line was lost.",
    "kxhost watch D100:4 M0:8 X10 32CV200 --port /dev/ttyUSB0 --station 1\n"
    "kxhost watch D0:10@1 D0:10@2 --tcp 192.168.0.5 --cycles 20 --json\n"
    "kxhost watch Y0:8 --port /dev/ttyUSB0 --baud 19200 --parity even --frames\n"
    "kxhost watch D0 --simulate"};

struct WatchOptions {
    ConnectionOptions connection;
    QList<AddressRange> ranges;
    int cycles = 0;
};

bool readOptions(const QCommandLineParser& parser, WatchOptions* options, QString* error)
{
    if (!readConnectionOptions(parser, &options->connection, error)
        || !takeNumber(parser, "cycles", 1, std::numeric_limits<int>::max(), &options->cycles,
                       error)
        || !parseAddressRanges(parser.positionalArguments(), options->connection.station,
                               &options->ranges, error))
        return false;
    for (const AddressRange& range : options->ranges) {
        if (!options->connection.simulatedStations.contains(range.station))
            options->connection.simulatedStations << range.station;
    }
    if (options->ranges.isEmpty())
        *error = QLatin1String("nothing to watch; name addresses such as D100:4");
    return !options->ranges.isEmpty();
}

std::unique_ptr<WatchView> makeView(const ConnectionOptions& options)
{
    if (options.json)
        return std::make_unique<JsonView>(options.frames);
    return std::make_unique<TextView>(options.frames);
}

int watch(const WatchOptions& options)
{
    Connection connection;
    const int result = openConnection(options.connection, &connection);
    if (result != EXIT_FINE)
        return result;
    const std::unique_ptr<WatchView> view = makeView(options.connection);
    WatchRun run(connection.session.get(), options.ranges, options.cycles, view.get());
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, &run, &WatchRun::finish);
    QObject::connect(&run, &WatchRun::lineLost,
                     [](const QString& error) { complain(error, EXIT_DEVICE_FAILED); });
    QObject::connect(&run, &WatchRun::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    run.start();
    QCoreApplication::exec();
    return run.hasDeviceFailed() ? EXIT_DEVICE_FAILED : EXIT_FINE;
}

} // namespace

int runWatch(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    parser.addOption({QLatin1String("cycles"), QLatin1String("End after so many cycles."),
                      QLatin1String("COUNT")});
    int exitCode = EXIT_FINE;
    if (!parseCommandLine(&parser, arguments, HELP, &exitCode))
        return exitCode;
    WatchOptions options;
    QString error;
    if (!readOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return watch(options);
}
