#include "kxhost/commands/commands.h"

#include "addresses/read_pieces.h"
#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/printed_views.h"
#include "panel/jobs/read_job.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

const CommandHelp HELP = {
    "read [options] ADDRESS|FILE...",
    "Reads the addresses once and prints a line for each: station, address, value.\n"
    "An address is TYPENUMBER[:COUNT][@STATION], COUNT being in values; a file is a\n"
    "tags file, whose names are printed after the addresses. Values of registers are\n"
    "unsigned. Exit code 1 when a station did not answer or refused.",
    "kxhost read D100:10 --port /dev/ttyUSB0\n"
    "kxhost read tags.csv --port /dev/ttyUSB0\n"
    "kxhost read X0:8 32CV200@2 --tcp 192.168.0.5 --json\n"
    "kxhost read D0 --simulate"};

bool parseOptions(const QCommandLineParser& parser, ConnectionOptions* options, QList<Tag>* tags,
                  QString* error)
{
    if (!parseConnectionOptions(parser, options, error)
        || !parseTagArguments(parser, options->station, tags, error))
        return false;
    for (const Tag& tag : *tags) {
        const AddressRange& range = tag.range;
        if (addressesPerRead(range.type, options->session.maxWords) < 1) {
            *error =
                QStringLiteral("%1: %2").arg(addressText(range.type, range.address),
                                             tooLongText(range.type, options->session.maxWords));
            return false;
        }
        simulateStation(range.station, options);
    }
    if (tags->isEmpty())
        *error = QStringLiteral("nothing to read; name addresses such as D100:4, or a tags file");
    return !tags->isEmpty();
}

QString rangeText(const AddressRange& range)
{
    const QString count = range.values == 1 ? QString() : QStringLiteral(":%1").arg(range.values);
    return QStringLiteral("%1%2@%3")
        .arg(addressText(range.type, range.address), count)
        .arg(range.station);
}

void printText(const ReadOutcome& outcome)
{
    const AddressRange& range = outcome.tag.range;
    for (int i = 0; i < outcome.values.size(); ++i)
        say(QStringLiteral("%1 %2 %3")
                .arg(range.station)
                .arg(withName(addressText(range.type, range.address + i), outcome.tag.name),
                     QString::number(outcome.values.at(i))));
    if (!outcome.failure.isNone())
        complain(QStringLiteral("%1: %2").arg(withName(rangeText(range), outcome.tag.name),
                                              outcome.failure.text),
                 EXIT_DEVICE_FAILED);
}

void printJsonOutcome(const ReadOutcome& outcome)
{
    const AddressRange& range = outcome.tag.range;
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("read");
    json[QLatin1String("station")] = range.station;
    json[QLatin1String("address")] = addressText(range.type, range.address);
    json[QLatin1String("count")] = range.values;
    if (!outcome.tag.name.isEmpty())
        json[QLatin1String("name")] = outcome.tag.name;
    if (outcome.failure.isNone()) {
        QJsonArray values;
        for (const qint64 value : outcome.values)
            values.append(value);
        json[QLatin1String("values")] = values;
    } else {
        json[QLatin1String("failure")] = outcome.failure.text;
    }
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
    QObject::connect(&job, &ReadJob::rangeFinished, options.json ? printJsonOutcome : printText);
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
    if (!parseCommand(&parser, arguments, HELP, &exitCode))
        return exitCode;
    ConnectionOptions options;
    options.session = settingsForReading();
    QList<Tag> tags;
    QString error;
    if (!parseOptions(parser, &options, &tags, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return read(options, tags);
}

} // namespace kx
