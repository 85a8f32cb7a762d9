#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/value_json.h"
#include "kxhost/views/watch/printed_views.h"
#include "panel/files/shared_addresses.h"
#include "panel/files/whole_range.h"
#include "panel/jobs/read_job.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"

namespace kx
{

namespace
{

const CommandHelp READ_HELP = {
    "read [options] ADDRESS|FILE...",
    "Reads the addresses once and prints a line for each: station, address, value.\n"
    "An address is TYPENUMBER[:COUNT][@STATION][/FORMAT], COUNT being in values; a file\n"
    "is a tags file, whose names are printed after the addresses. Values of registers\n"
    "are unsigned without a format such as s16, hex, float, ascii:8 or s16*0.1; D100.5\n"
    "is one bit of a word. Exit code 1 when a station did not answer or refused.",
    "kxhost read D100:10 --port /dev/ttyUSB0\n"
    "kxhost read D100:4/float D110/s16*0.1+5 D120.5 --port /dev/ttyUSB0\n"
    "kxhost read tags.csv --only 'pump*' --port /dev/ttyUSB0\n"
    "kxhost read X0:8 32CV200@2 --tcp 192.168.0.5 --json\n"
    "kxhost read D0 --simulate"};

bool parseReadOptions(const QCommandLineParser& parser, ConnectionOptions* options,
                      QList<Tag>* tags, QString* error)
{
    if (!parseConnectionOptions(parser, options, error)
        || !parseTagArguments(parser, options->station, tags, error))
        return false;
    for (const Tag& tag : *tags) {
        const QString fault = requestFault(tag, options->session.maxWords);
        if (!fault.isEmpty()) {
            *error = faultyText(valueName(tag.range, tag.format, 0), fault);
            return false;
        }
        simulateStation(tag.range.station, options);
    }
    if (tags->isEmpty())
        *error = QStringLiteral("nothing to read; name addresses such as D100:4, or a tags file");
    return !tags->isEmpty();
}

/// The address as it was typed, without the format; the bit of a word stays.
QString placeText(const Tag& tag)
{
    return valueAddressText(tag.range, tag.format).section(QLatin1Char('/'), 0, 0);
}

void printText(const ReadOutcome& outcome, const SharedAddresses& shared)
{
    const Tag& tag = outcome.tag;
    const auto nameOf = [&](int value) {
        return shared.hold(tag, value) ? nameWithFormat(tag.range, tag.format, value)
                                       : valueName(tag.range, tag.format, value);
    };
    for (int i = 0; i < valuesIn(tag.range, tag.format) && outcome.failure.isNone(); ++i)
        say(QStringLiteral("%1 %2 %3")
                .arg(tag.range.station)
                .arg(withName(nameOf(i), tag.name),
                     withUnit(tag.format,
                              valueText(tag.format, rawOfValue(outcome.values, tag.format, i)))));
    if (!outcome.failure.isNone())
        complain(
            QStringLiteral("%1: %2").arg(withName(placeText(tag), tag.name), outcome.failure.text),
            EXIT_DEVICE_FAILED);
}

void printJsonOutcome(const ReadOutcome& outcome)
{
    const Tag& tag = outcome.tag;
    QJsonObject json = tagJson(tag);
    json[QLatin1String("event")] = QStringLiteral("read");
    json[QLatin1String("count")] = valuesIn(tag.range, tag.format);
    if (outcome.failure.isNone())
        addValues(tag, outcome.values, &json);
    else
        json[QLatin1String("failure")] = outcome.failure.text;
    printJson(json);
}

int read(const ConnectionOptions& options, const QList<Tag>& tags)
{
    HostSession host;
    const int result = openSession(options, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options);
    ReadJob job(host.session.get(), tags);
    const SharedAddresses shared(tags);
    QObject::connect(&job, &ReadJob::rangeFinished, [&](const ReadOutcome& outcome) {
        if (options.json)
            printJsonOutcome(outcome);
        else
            printText(outcome, shared);
    });
    runToItsEnd(host.session.get(), &job);
    return job.failure().isNone() ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

} // namespace

int runRead(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addTagsOption(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, READ_HELP, &exitCode))
        return exitCode;
    ConnectionOptions options;
    options.session = settingsForReading();
    QList<Tag> tags;
    QString error;
    if (!parseReadOptions(parser, &options, &tags, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return read(options, tags);
}

} // namespace kx
