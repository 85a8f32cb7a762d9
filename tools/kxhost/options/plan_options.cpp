#include "kxhost/options/plan_options.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/text/duration.h"

namespace kx
{

namespace
{

const qint64 LONGEST_TURNAROUND = 60000000; // microseconds

const char* const PLAN_OPTIONS[][3] = {
    {"turnaround",
     "Time from the end of a request to its reply, such as 5ms or 800us; without a unit, "
     "milliseconds (default 5ms). At least the frame gap of 3.5 characters counts.",
     "TIME"},
    {"a,station", "Station of addresses without @STATION (default 1).", "STATION"},
    {"max-words",
     "The longest request: so many registers, up to which the driver joins them; or auto: what "
     "takes the least time on the line (default auto).",
     "COUNT|auto"},
    {"max-bits", "The longest request for coils (default 2000).", "COUNT"},
};

bool parseTurnaround(const QCommandLineParser& parser, qint64* turnaround, QString* error)
{
    if (!parser.isSet(QStringLiteral("turnaround")))
        return true;
    const QString value = parser.value(QStringLiteral("turnaround"));
    if (parseDuration(value, LONGEST_TURNAROUND, turnaround))
        return true;
    *error = QStringLiteral("--turnaround %1: must be a time from 0 to 60s, such as 5ms or 800us")
                 .arg(value);
    return false;
}

} // namespace

void addPlanOptions(QCommandLineParser* parser)
{
    addFormatOptions(parser);
    for (const auto& option : PLAN_OPTIONS)
        parser->addOption({QString::fromLatin1(option[0]).split(QLatin1Char(',')),
                           QString::fromLatin1(option[1]), QString::fromLatin1(option[2])});
    addTagsOption(parser);
}

bool parsePlanOptions(const QCommandLineParser& parser, PlanOptions* options, QString* error)
{
    LineTiming& line = options->timing.line;
    options->lengths = settingsForReading();
    int station = 1;
    char parity = 'N';
    if (!parseTiming(parser, &line, &parity, error) || !parseStationOption(parser, &station, error)
        || !parseLengthOptions(parser, &options->lengths, error)
        || !parseTurnaround(parser, &options->timing.turnaround, error)
        || !parseWatchedRanges(parser, station, &options->watched, error))
        return false;
    if (options->watched.isEmpty())
        *error = QStringLiteral("nothing to plan; name addresses such as D100:4, or a tags file");
    return !options->watched.isEmpty();
}

} // namespace kx
