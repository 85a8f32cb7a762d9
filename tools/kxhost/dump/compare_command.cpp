#include "kxhost/commands/commands.h"

#include "kxhost/dump/dump_views.h"
#include "kxhost/dump/whole_read.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/dump_options.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

namespace kx
{

namespace
{

const CommandHelp COMPARE_HELP = {
    "compare [options] FILE",
    "Reads what a file of kxhost dump holds and prints a line for each value that\n"
    "differs: station, address, the file's value and the controller's.",
    "kxhost compare memory.kxd --port /dev/ttyUSB0\n"
    "kxhost compare memory.kxd --tcp 192.168.0.5 --json\n"
    "kxhost compare memory.kxd --simulate",
    "Exit codes: 0 all as in the file, 1 some values differ, 2 wrong usage or a damaged\n"
    "file, 3 the port or the library cannot be opened, 4 not all values could be read"};

void printDifferences(const KeptOptions& options, const WholeRead& whole, int differences)
{
    const int values = valuesOf(options.dump.runs);
    const int unread = values - whole.values().size();
    if (!options.connection.json) {
        say(QStringLiteral("values: %1, different: %2, not read: %3")
                .arg(values)
                .arg(differences)
                .arg(unread));
        return;
    }
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("compare");
    json[QLatin1String("values")] = values;
    json[QLatin1String("different")] = differences;
    json[QLatin1String("complete")] = unread == 0;
    if (unread > 0)
        json[QLatin1String("unread")] = unreadJson(whole.unread());
    printJson(json);
}

int compare(const KeptOptions& options)
{
    WholeRead whole;
    const QList<Assignment>& kept = options.dump.runs;
    const int result = readWhole(options.connection, rangesOf(kept), &whole);
    if (result != EXIT_FINE)
        return result;
    const QList<Difference> differences = differencesOf(kept, whole.values());
    for (const Difference& difference : differences) {
        if (options.connection.json)
            printJson(differenceJson(difference));
        else
            say(differenceRow(difference));
    }
    printDifferences(options, whole, static_cast<int>(differences.size()));
    const QList<UnreadRange> unread = whole.unread();
    complainOf(unread);
    // What was not printed was not told either, and a 1 would say that values differ.
    if (!unread.isEmpty() || !outputFailure().isEmpty())
        return EXIT_NOT_COMPARED;
    return differences.isEmpty() ? EXIT_FINE : EXIT_DIFFERENT;
}

} // namespace

int runCompare(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser, 1000, optionsUnusedWithDumps());
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, COMPARE_HELP, &exitCode))
        return exitCode;
    KeptOptions options;
    QString error;
    if (!parseKeptOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return compare(options);
}

} // namespace kx
