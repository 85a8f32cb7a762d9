#include "kxhost/options/dump_options.h"

#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/dump/controller_values.h"
#include "panel/files/replaced_file.h"
#include "panel/files/whole_range.h"

namespace kx
{

namespace
{

const char* const TO_OPTION = "to";
const char* const YES_OPTION = "yes";
const char* const STATION_OPTION = "station";

bool fail(QString* error, const QString& message)
{
    *error = message;
    return false;
}

int countOf(const QList<AddressRange>& ranges)
{
    int count = 0;
    for (const AddressRange& range : ranges)
        count += range.values;
    return count;
}

bool canBeRead(const QList<AddressRange>& ranges, const SessionSettings& settings, QString* error)
{
    for (const AddressRange& range : ranges) {
        Tag tag;
        tag.range = range;
        const QString fault = requestFault(tag, settings.maxWords);
        if (!fault.isEmpty())
            return fail(
                error, QStringLiteral("%1: %2").arg(addressText(range.type, range.address), fault));
    }
    return true;
}

bool parseAddresses(const QCommandLineParser& parser, DumpOptions* options, QString* error)
{
    QList<AddressRange> typed;
    if (!parseWatchedRanges(parser, options->connection.station, &typed, error))
        return false;
    if (typed.isEmpty())
        return fail(error, QStringLiteral("nothing to dump; name addresses such as D0:1000, or a "
                                          "tags file"));
    options->ranges = joinedRanges(typed);
    if (countOf(options->ranges) > MOST_DUMPED_VALUES)
        return fail(error,
                    QStringLiteral("%1 values are more than the %2 that a dump may have; make "
                                   "several")
                        .arg(QString::number(countOf(options->ranges)),
                             QString::number(MOST_DUMPED_VALUES)));
    return canBeRead(options->ranges, options->connection.session, error);
}

} // namespace

void addDumpOptions(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(TO_OPTION),
                       QLatin1String("The file for the values; one that exists is replaced."),
                       QLatin1String("FILE")});
    addTagsOption(parser);
}

bool parseDumpOptions(const QCommandLineParser& parser, DumpOptions* options, QString* error)
{
    options->connection.session = settingsForReading();
    options->path = parser.value(QLatin1String(TO_OPTION));
    if (!parseConnectionOptions(parser, &options->connection, error)
        || !parseAddresses(parser, options, error))
        return false;
    if (options->path.isEmpty())
        return fail(error, QStringLiteral("no file; name the one for the values with --to FILE"));
    return canReplaceFile(options->path, error);
}

QStringList optionsUnusedWithDumps()
{
    return {QLatin1String(STATION_OPTION)};
}

void addYesOption(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(YES_OPTION),
                       QLatin1String("Write without asking; needed where nobody can be asked.")});
}

bool parseKeptOptions(const QCommandLineParser& parser, KeptOptions* options, QString* error)
{
    const QStringList files = parser.positionalArguments();
    const QString yes = QLatin1String(YES_OPTION);
    options->connection.session = settingsForReading();
    options->isAgreed = parser.optionNames().contains(yes);
    if (parser.isSet(QLatin1String(STATION_OPTION)))
        return fail(error, QStringLiteral("--station: the file names the stations"));
    if (!parseConnectionOptions(parser, &options->connection, error))
        return false;
    if (files.size() != 1)
        return fail(error,
                    QStringLiteral("%1; name one file that kxhost dump has made")
                        .arg(QLatin1String(files.isEmpty() ? "no file" : "more than one file")));
    options->path = files.first();
    if (!loadDump(options->path, &options->dump, error))
        return false;
    return canBeRead(rangesOf(options->dump.runs), options->connection.session, error);
}

} // namespace kx
