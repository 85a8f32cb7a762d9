#include "kxhost/commands/commands.h"

#include "kxhost/dump/dump_views.h"
#include "kxhost/dump/whole_read.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/dump_options.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/files/replaced_file.h"
#include "panel/text/counted.h"

namespace kx
{

namespace
{

const CommandHelp DUMP_HELP = {
    "dump [options] ADDRESS|FILE... --to FILE",
    "Reads the addresses once and keeps their values in a file, which kxhost compare\n"
    "and kxhost restore read. An address is TYPENUMBER[:COUNT][@STATION], COUNT being\n"
    "in values; a file is a tags file. Values are kept as the controller has them:\n"
    "bits, registers and 32CV values, without formats. The file is text with a line\n"
    "for each value, and tells when it is damaged. It is made, or replaced, once all\n"
    "values have arrived; otherwise it stays as it was, and the exit code is 1.",
    "kxhost dump D0:1000 M0:100 --to memory.kxd --port /dev/ttyUSB0\n"
    "kxhost dump D0:100@1 D0:100@2 --to both.kxd --tcp 192.168.0.5\n"
    "kxhost dump D0:8000 M0:10240 32CV200:56 --to all.kxd --simulate"};

void printSummary(const DumpOptions& options, const Dump& dump, const QList<UnreadRange>& unread,
                  const QString& failure)
{
    if (!options.connection.json) {
        if (failure.isEmpty())
            say(QStringLiteral("%1 of %2 kept in %3")
                    .arg(counted(valuesOf(dump.runs), "value", "values"), stationsText(dump.runs),
                         options.path));
        return;
    }
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("dump");
    json[QLatin1String("file")] = options.path;
    json[QLatin1String("values")] = valuesOf(dump.runs);
    json[QLatin1String("complete")] = failure.isEmpty();
    if (!failure.isEmpty())
        json[QLatin1String("failure")] = failure;
    if (!unread.isEmpty())
        json[QLatin1String("unread")] = unreadJson(unread);
    printJson(json);
}

int dumpValues(const DumpOptions& options)
{
    Dump dump;
    WholeRead whole;
    dump.begun = QDateTime::currentDateTimeUtc();
    const int result = readWhole(options.connection, options.ranges, &whole);
    if (result != EXIT_FINE)
        return result;
    dump.ended = QDateTime::currentDateTimeUtc();
    dump.runs = whole.values().runs();
    const QList<UnreadRange> unread = whole.unread();
    QString failure;
    if (!unread.isEmpty())
        failure =
            QStringLiteral("%1: not written, since not all values could be read").arg(options.path);
    else
        replaceFile(options.path, dumpText(dump), &failure);
    printSummary(options, dump, unread, failure);
    complainOf(unread);
    return failure.isEmpty() ? EXIT_FINE : complain(failure, EXIT_DEVICE_FAILED);
}

} // namespace

int runDump(const QStringList& arguments)
{
    QCommandLineParser parser;
    addDumpOptions(&parser);
    addConnectionOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, DUMP_HELP, &exitCode))
        return exitCode;
    DumpOptions options;
    QString error;
    if (!parseDumpOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return dumpValues(options);
}

} // namespace kx
