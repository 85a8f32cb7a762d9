#include "kxhost/options/plan_options.h"

#include "addresses/request_limits.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/plan/plan_request.h"

#include <QtCore/QRegularExpression>

#include <cmath>

namespace kx
{

namespace
{

const double LONGEST_TURNAROUND = 60e6; // microseconds

const char* const OPTIONS[][3] = {
    {"b,baud", "Bits per second (default 9600).", "BAUD"},
    {"parity", "Parity: none, even or odd (default none).", "PARITY"},
    {"data-bits", "Data bits: 8, which Modbus RTU needs.", "BITS"},
    {"stop-bits", "Stop bits, 1 or 2 (default 1).", "BITS"},
    {"turnaround",
     "Time from the end of a request to its reply, such as 5ms or 800us; without a unit, "
     "milliseconds (default 5ms). At least the frame gap of 3.5 characters counts.",
     "TIME"},
    {"a,station", "Station of addresses without @STATION (default 1).", "STATION"},
    {"max-words", "The driver's longest request: so many registers, or watched bits (default 32).",
     "COUNT"},
};

bool parseTurnaround(const QCommandLineParser& parser, qint64* turnaround, QString* error)
{
    if (!parser.isSet(QStringLiteral("turnaround")))
        return true;
    const QString value = parser.value(QStringLiteral("turnaround"));
    if (parseDuration(value, turnaround))
        return true;
    *error = QStringLiteral("--turnaround %1: must be a time from 0 to 60s, such as 5ms or 800us")
                 .arg(value);
    return false;
}

} // namespace

void addPlanOptions(QCommandLineParser* parser)
{
    for (const auto& option : OPTIONS)
        parser->addOption({QString::fromLatin1(option[0]).split(QLatin1Char(',')),
                           QString::fromLatin1(option[1]), QString::fromLatin1(option[2])});
    addTagsOption(parser);
}

bool parsePlanOptions(const QCommandLineParser& parser, PlanOptions* options, QString* error)
{
    LineTiming& line = options->timing.line;
    int station = 1;
    char parity = 'N';
    if (!parseTiming(parser, &line, &parity, error) || !parseStationOption(parser, &station, error)
        || !parseNumber(parser, "max-words", 1, MOST_REGISTERS_PER_READ, &options->maxWords, error)
        || !parseTurnaround(parser, &options->timing.turnaround, error)
        || !parseWatchedRanges(parser, station, &options->watched, error))
        return false;
    if (options->watched.isEmpty())
        *error = QStringLiteral("nothing to plan; name addresses such as D100:4, or a tags file");
    return !options->watched.isEmpty();
}

bool parseDuration(const QString& duration, qint64* microseconds)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]+(?:\\.[0-9]+)?) ?(us|ms|s)?\\z"));
    const QRegularExpressionMatch match = pattern.match(duration);
    const QString unit = match.captured(2);
    const double scale = unit == QStringLiteral("us")  ? 1.0
                         : unit == QStringLiteral("s") ? 1e6
                                                       : 1e3;
    const double value = match.captured(1).toDouble() * scale;
    if (!match.hasMatch() || value > LONGEST_TURNAROUND)
        return false;
    *microseconds = std::llround(value);
    return true;
}

} // namespace kx
