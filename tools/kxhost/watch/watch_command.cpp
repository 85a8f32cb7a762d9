#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/polled_tags.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"
#include "kxhost/views/watch/live_view.h"
#include "kxhost/views/watch/printed_views.h"
#include "kxhost/watch/prompt_writer.h"
#include "kxhost/watch/watch_run.h"

#include <QtCore/QCoreApplication>

#include <limits>

namespace kx
{

namespace
{

const CommandHelp WATCH_HELP = {
    "watch [options] ADDRESS|FILE...",
    "Reads the addresses in cycles and shows their values.\n"
    "An address is TYPENUMBER[:COUNT][@STATION][/FORMAT], COUNT being in values; a file\n"
    "is a tags file, whose names are shown. A value of several registers is always of\n"
    "one reply. A cycle is over when every request of the list was answered or has\n"
    "failed once. Ctrl-C ends it. Exit code 1 when an address was never read or its\n"
    "last read failed, or when the line was lost.\n"
    "On a terminal a table is shown, below which assignments such as D100=5 can be\n"
    "typed, or / and what the rows shall contain; arrows and PgUp/PgDn scroll it.\n"
    "--frames and --json, or a pipe, give lines of changes instead.",
    "kxhost watch D100:4 M0:8 X10 32CV200 --port /dev/ttyUSB0 --station 1\n"
    "kxhost watch D100/float D110:4/s16*0.1 D200.5 --port /dev/ttyUSB0\n"
    "kxhost watch D0:10@1 D0:10@2 --tcp 192.168.0.5 --cycles 20 --json\n"
    "kxhost watch Y0:8 --port /dev/ttyUSB0 --baud 19200 --parity even --frames\n"
    "kxhost watch --tags line3.csv --port /dev/ttyUSB0\n"
    "kxhost watch D0 --simulate"};

struct WatchOptions {
    ConnectionOptions connection;
    QList<Tag> tags;
    ValueFormat order; ///< of values that name none
    int cycles = 0;
};

bool parseWatchOptions(const QCommandLineParser& parser, WatchOptions* options, QString* error)
{
    return parseConnectionOptions(parser, &options->connection, error)
           && parseNumber(parser, "cycles", 1, std::numeric_limits<int>::max(), &options->cycles,
                          error)
           && parseWordOrder(parser, &options->order, error)
           && parsePolledTags(parser, "watch", &options->connection, &options->tags, error);
}

bool wantsTable(const ConnectionOptions& options)
{
    return Terminal::isUsable() && !options.json && !options.frames;
}

QChar parityLetter(QSerialPort::Parity parity)
{
    if (parity == QSerialPort::NoParity)
        return QLatin1Char('N');
    return QLatin1Char(parity == QSerialPort::EvenParity ? 'E' : 'O');
}

int runUntilFinished(WatchRun* run)
{
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, run, &WatchRun::finish);
    QObject::connect(run, &WatchRun::lineLost,
                     [](const QString& error) { complain(error, EXIT_DEVICE_FAILED); });
    QObject::connect(run, &WatchRun::finished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    run->start();
    QCoreApplication::exec();
    return run->hasDeviceFailed() ? EXIT_DEVICE_FAILED : EXIT_FINE;
}

int watchInLines(const WatchOptions& options, Session* session)
{
    TextView text(options.connection.frames);
    JsonView json(options.connection.frames);
    WatchView* const view = options.connection.json ? static_cast<WatchView*>(&json) : &text;
    WatchRun run(session, options.tags, options.cycles, view);
    return runUntilFinished(&run);
}

int watchInTable(const WatchOptions& options, Session* session)
{
    const Line* const line = session->line();
    QStringList title = {line->name(),
                         lineSettingsText(line->timing(), parityLetter(options.connection.parity)),
                         line->modeText()};
    title.removeAll(QString());
    LiveView view(title.join(QLatin1String("  ")));
    PromptWriter writer(session, options.connection.station, options.tags, options.order);
    QObject::connect(&view, &LiveView::entered, &writer, &PromptWriter::take);
    QObject::connect(&writer, &PromptWriter::message, &view, &LiveView::setMessage);
    WatchRun run(session, options.tags, options.cycles, &view);
    return runUntilFinished(&run);
}

int watch(const WatchOptions& options)
{
    HostSession host;
    const int result = openSession(options.connection, &host);
    if (result != EXIT_FINE)
        return result;
    Session* const session = host.session.get();
    return wantsTable(options.connection) ? watchInTable(options, session)
                                          : watchInLines(options, session);
}

} // namespace

int runWatch(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addIntervalOption(&parser);
    addTagsOption(&parser);
    parser.addOption({QLatin1String("cycles"), QLatin1String("End after so many cycles."),
                      QLatin1String("COUNT")});
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, WATCH_HELP, &exitCode))
        return exitCode;
    WatchOptions options;
    options.connection.session = settingsForReading();
    QString error;
    if (!parseWatchOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return watch(options);
}

} // namespace kx
