#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/record/record_run.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"

#include <QtCore/QCoreApplication>

#include <csignal>

namespace kx
{

namespace
{

const CommandHelp RECORD_HELP = {
    "record [options] ADDRESS|FILE...",
    "Reads the addresses in cycles, as watch does, and records their values in a file: a\n"
    "table for spreadsheets (.csv) or a database (.sqlite). What could not be read is a\n"
    "gap with its reason. Whatever ends the program, all but the last second is in the\n"
    "file. Ctrl-C ends it. Exit code 1 when an address had no value at the end, the line\n"
    "was lost or the file takes no more.",
    "kxhost record D100:4 M0:8 --to line3.csv --every 1s --port /dev/ttyUSB0\n"
    "kxhost record line3-tags.csv --to line3.sqlite --changes --rotate 1d --port /dev/ttyUSB0\n"
    "kxhost record D0 --to trial.csv --every 500ms --for 10min --simulate"};

int record(const RecordOptions& options)
{
    // A limit of the size of files then fails as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    HostSession host;
    const int result = openSession(options.connection, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options.connection);
    RecordRun run(host.session.get(), options);
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, &run, &RecordRun::finish);
    QObject::connect(&run, &RecordRun::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    QString error;
    if (!run.start(&error))
        return complain(error, EXIT_WRONG_USAGE);
    QCoreApplication::exec();
    if (!run.failure().isEmpty())
        return complain(run.failure(), EXIT_DEVICE_FAILED);
    return run.hasFailed() ? EXIT_DEVICE_FAILED : EXIT_FINE;
}

} // namespace

int runRecord(const QStringList& arguments)
{
    QCommandLineParser parser;
    addRecordOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, RECORD_HELP, &exitCode))
        return exitCode;
    RecordOptions options;
    options.connection.session = settingsForReading();
    QString error;
    if (!parseRecordOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return record(options);
}

} // namespace kx
