#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/dump/restore_run.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const CommandHelp RESTORE_HELP = {
    "restore [options] FILE",
    "Gives the controllers the values that a file of kxhost dump holds. Reads what they\n"
    "have, says how many values differ, asks on a terminal (--yes: does not ask), writes\n"
    "those that differ and no others, and reads all again. Registers are written before\n"
    "coils. Inputs (X) are left out. Nothing is written unless all could be read. Exit\n"
    "code 1 when a value is not as in the file in the end; each is named, and whether it\n"
    "was written or the controller changes it by itself.\n"
    "A write starts what it starts: know what the values do before you say yes.",
    "kxhost restore memory.kxd --port /dev/ttyUSB0\n"
    "kxhost restore memory.kxd --tcp 192.168.0.5 --yes --json\n"
    "kxhost restore memory.kxd --simulate --yes"};

bool isWritable(const Assignment& run)
{
    return run.range.type->writable;
}

/// Takes from the runs those that can be written, or the others.
QList<Assignment> runsThat(const QList<Assignment>& runs, bool canBeWritten)
{
    QList<Assignment> chosen;
    for (const Assignment& run : runs) {
        if (isWritable(run) == canBeWritten)
            chosen << run;
    }
    return chosen;
}

int restore(const KeptOptions& options)
{
    const QList<Assignment>& runs = options.dump.runs;
    const QList<Assignment> kept = runsThat(runs, true);
    if (kept.isEmpty())
        return complain(options.path
                            + QLatin1String(": holds inputs alone, which cannot be written"),
                        EXIT_WRONG_USAGE);
    ConnectionOptions connection = options.connection;
    simulateStationsOf(rangesOf(kept), &connection);
    HostSession host;
    const int result = openSession(connection, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), connection);
    const RestoreView view(options.path, connection.json);
    view.showLeftOut(rangesOf(runsThat(runs, false)));
    return RestoreRun(host.session.get(), options, kept).run();
}

} // namespace

int runRestore(const QStringList& arguments)
{
    QCommandLineParser parser;
    addYesOption(&parser);
    addConnectionOptions(&parser, 1000, optionsUnusedWithDumps());
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, RESTORE_HELP, &exitCode))
        return exitCode;
    KeptOptions options;
    QString error;
    if (!parseKeptOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    if (!options.isAgreed && !Question::isPossible())
        return complain(QStringLiteral("nobody can be asked here; compare first, then restore "
                                       "with --yes"),
                        EXIT_WRONG_USAGE);
    return restore(options);
}

} // namespace kx
