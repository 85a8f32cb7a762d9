#include "kxhost/commands/commands.h"

#include "addresses/read_pieces.h"
#include "addresses/write_pieces.h"
#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/jobs/write_job.h"
#include "registers/register_types.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

const CommandHelp HELP = {
    "write [options] ADDRESS=VALUE[,VALUE...]...",
    "Writes values and says for each assignment whether the station confirmed it.\n"
    "Values are decimal, 0x hexadecimal or negative; coils take 0 and 1. X cannot be\n"
    "written. All assignments are checked before the first is sent. Exit code 1 when\n"
    "a station did not answer or refused.",
    "kxhost write D100=1234 Y10=1 32CV200=100000 --port /dev/ttyUSB0\n"
    "kxhost write M0=1,0,1,1 D100@2=0x10,-5 --tcp 192.168.0.5 --json\n"
    "kxhost write D100=1 --simulate"};

bool parseWrite(const QString& text, ConnectionOptions* options, Assignment* assignment,
                QString* error)
{
    if (!parseAssignment(text, assignment, error))
        return false;
    AddressRange& range = assignment->range;
    if (!range.type->writable)
        *error = QStringLiteral("%1: %2 is an input and cannot be written")
                     .arg(text, addressText(range.type, range.address));
    else if (addressesPerWrite(range.type, options->session.maxWords) < 1)
        *error =
            QStringLiteral("%1: %2").arg(text, tooLongText(range.type, options->session.maxWords));
    if (!error->isEmpty())
        return false;
    if (range.station < 0)
        range.station = options->station;
    simulateStation(range.station, options);
    return true;
}

bool parseOptions(const QCommandLineParser& parser, ConnectionOptions* options,
                  QList<Assignment>* assignments, QString* error)
{
    if (!parseConnectionOptions(parser, options, error))
        return false;
    for (const QString& text : parser.positionalArguments()) {
        Assignment assignment;
        if (!parseWrite(text, options, &assignment, error))
            return false;
        assignments->append(assignment);
    }
    if (assignments->isEmpty())
        *error = QStringLiteral("nothing to write; name assignments such as D100=1234");
    return !assignments->isEmpty();
}

QString valuesText(const QList<qint64>& values)
{
    QStringList texts;
    for (const qint64 value : values)
        texts << QString::number(value);
    return texts.join(QLatin1Char(','));
}

QString confirmedPart(const WriteOutcome& outcome)
{
    return outcome.confirmed == 0 ? QString()
                                  : QStringLiteral("; the first %1 of %2 values were confirmed")
                                        .arg(outcome.confirmed)
                                        .arg(outcome.assignment.range.values);
}

void printText(const WriteOutcome& outcome)
{
    const AddressRange& range = outcome.assignment.range;
    const QString result =
        outcome.failure.isNone()
            ? QStringLiteral("confirmed")
            : QStringLiteral("failed: ") + outcome.failure.text + confirmedPart(outcome);
    say(QStringLiteral("%1 %2=%3 %4")
            .arg(QString::number(range.station), addressText(range.type, range.address),
                 valuesText(outcome.assignment.values), result));
}

void printJsonOutcome(const WriteOutcome& outcome)
{
    QJsonArray values;
    for (const qint64 value : outcome.assignment.values)
        values.append(value);
    const AddressRange& range = outcome.assignment.range;
    QJsonObject json;
    json[QLatin1String("event")] = QStringLiteral("write");
    json[QLatin1String("station")] = range.station;
    json[QLatin1String("address")] = addressText(range.type, range.address);
    json[QLatin1String("values")] = values;
    json[QLatin1String("confirmed")] = outcome.confirmed;
    if (!outcome.failure.isNone())
        json[QLatin1String("failure")] = outcome.failure.text;
    printJson(json);
}

int write(const ConnectionOptions& options, const QList<Assignment>& assignments)
{
    HostSession host;
    const int result = openSession(options, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options);
    WriteJob job(host.session.get(), assignments);
    QObject::connect(&job, &WriteJob::assignmentFinished,
                     options.json ? printJsonOutcome : printText);
    runToItsEnd(host.session.get(), &job);
    return job.failure().isNone() ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

} // namespace

int runWrite(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, HELP, &exitCode))
        return exitCode;
    ConnectionOptions options;
    QList<Assignment> assignments;
    QString error;
    if (!parseOptions(parser, &options, &assignments, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return write(options, assignments);
}

} // namespace kx
