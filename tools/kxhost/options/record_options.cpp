#include "kxhost/options/record_options.h"

#include "exchange/loop_clock.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/polled_tags.h"
#include "kxhost/options/tags_arguments.h"
#include "panel/text/duration.h"

#include <limits>

namespace kx
{

namespace
{

const qint64 LONGEST_EVERY = 24 * 3600000000LL;       // microseconds, a day
const qint64 LONGEST_RECORDING = 366 * LONGEST_EVERY; // microseconds, a year
const qint64 SHORTEST = 100;                          // milliseconds

const char* const RECORD_OPTIONS[][3] = {
    {"to",
     "The recording: a .csv file for spreadsheets, or a .sqlite database. Goes on with a recording "
     "of the same tags.",
     "FILE"},
    {"every", "Record all values at that distance, such as 1s (100ms to 24h).", "TIME"},
    {"rotate",
     "Begin another file at that size (64k, 100M, 1G) or at each full minute, hour or day (1min, "
     "1h, 1d, in UTC). Each has its time in its name.",
     "SIZE|TIME"},
    {"for", "End after that time, such as 90s, 30min or 8h.", "TIME"},
    {"cycles", "End after so many cycles.", "COUNT"},
};

bool parseTime(const QCommandLineParser& parser, const char* option, qint64 longest,
               const char* kind, qint64* milliseconds, QString* error)
{
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return true;
    qint64 microseconds = 0;
    if (parseDuration(parser.value(name), longest, &microseconds))
        *milliseconds = microseconds / MICROSECONDS_PER_MILLISECOND;
    if (*milliseconds >= SHORTEST)
        return true;
    *error = QStringLiteral("--%1 %2: must be a time %3")
                 .arg(name, parser.value(name), QLatin1String(kind));
    return false;
}

bool parseFile(const QCommandLineParser& parser, RecorderSettings* recording, QString* error)
{
    recording->path = parser.value(QStringLiteral("to"));
    const QString rotation = parser.value(QStringLiteral("rotate"));
    if (recording->path.isEmpty())
        *error = QStringLiteral("no file; name one with --to, such as --to line3.csv");
    else if (!isRecordingName(recording->path))
        *error = QStringLiteral("--to %1: must end in .csv, .sqlite, .sqlite3 or .db")
                     .arg(recording->path);
    else if (parser.isSet(QStringLiteral("rotate"))
             && !parseRotation(rotation, &recording->rotation))
        *error =
            QStringLiteral("--rotate %1: must be a size from 64k, such as 100M, or a time from "
                           "1min to 366d, such as 1h")
                .arg(rotation);
    return error->isEmpty();
}

bool parseMoments(const QCommandLineParser& parser, RecordOptions* options, QString* error)
{
    if (!parseTime(parser, "every", LONGEST_EVERY, "from 100ms to 24h, such as 1s",
                   &options->recording.every, error)
        || !parseTime(parser, "for", LONGEST_RECORDING, "from 100ms to 8784h, such as 8h",
                      &options->duration, error))
        return false;
    if ((options->recording.every > 0) != parser.isSet(QStringLiteral("changes")))
        return true;
    *error = QStringLiteral("when? Use either --every TIME, such as --every 1s, or --changes");
    return false;
}

} // namespace

void addRecordOptions(QCommandLineParser* parser)
{
    addConnectionOptions(parser);
    addIntervalOption(parser);
    addTagsOption(parser);
    for (const auto& option : RECORD_OPTIONS)
        parser->addOption({QString::fromLatin1(option[0]), QString::fromLatin1(option[1]),
                           QString::fromLatin1(option[2])});
    parser->addOption(
        {QStringLiteral("changes"), QStringLiteral("Record each change of a value.")});
}

bool parseRecordOptions(const QCommandLineParser& parser, RecordOptions* options, QString* error)
{
    return parseConnectionOptions(parser, &options->connection, error)
           && parseFile(parser, &options->recording, error) && parseMoments(parser, options, error)
           && parseNumber(parser, "cycles", 1, std::numeric_limits<int>::max(), &options->cycles,
                          error)
           && parsePolledTags(parser, "record", &options->connection, &options->tags, error);
}

} // namespace kx
