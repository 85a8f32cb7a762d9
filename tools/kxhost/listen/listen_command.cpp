#include "kxhost/commands/commands.h"

#include "kxhost/listen/listen_run.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"

#include <QtCore/QCoreApplication>

namespace kx
{

namespace
{

const CommandHelp LISTEN_HELP = {
    "listen [options]",
    "Hears what others say on a line and sends nothing: requests with their replies, in\n"
    "the controller's addresses, and at the end what became of the requests to each\n"
    "station, and who broke the gap of 3.5 characters. Ctrl-C ends it.\n"
    "Exit code 1 when no frame was heard or the port was lost.",
    "kxhost listen --port /dev/ttyUSB1 --baud 19200\n"
    "kxhost listen --port /dev/ttyUSB1 --seconds 60 --pcap line3.pcap\n"
    "kxhost listen --port /dev/ttyUSB1 --json"};

int listen(const ListenOptions& options)
{
    QString error;
    CaptureFile capture;
    if (!options.captureFile.isEmpty() && !capture.open(options.captureFile, &error))
        return complain(error, EXIT_WRONG_USAGE);
    ListenRun run(options, &capture);
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, &run, &ListenRun::finish);
    // Opening may fail at once.
    QObject::connect(&run, &ListenRun::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    run.start();
    QCoreApplication::exec();
    if (run.failure().isEmpty())
        return EXIT_FINE;
    return complain(run.failure(), run.wasOpen() ? EXIT_DEVICE_FAILED : EXIT_CANNOT_OPEN);
}

} // namespace

int runListen(const QStringList& arguments)
{
    QCommandLineParser parser;
    addListenOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, LISTEN_HELP, &exitCode))
        return exitCode;
    ListenOptions options;
    QString error;
    if (!parseListenOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return listen(options);
}

} // namespace kx
