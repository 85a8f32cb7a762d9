#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/commands/write_report.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/files/whole_range.h"
#include "panel/jobs/write_job.h"

namespace kx
{

namespace
{

const CommandHelp WRITE_HELP = {
    "write [options] ADDRESS=VALUE[,VALUE...]...",
    "Writes values and says for each assignment whether the station confirmed it.\n"
    "Values are decimal, 0x hexadecimal, 0b binary or negative; coils take 0 and 1. An\n"
    "address may have a format behind it, such as /float, /ascii:8 or /s16*0.1, in which\n"
    "the values are then given; with --tags, names of tags may stand for addresses.\n"
    "D100.5=1 reads the word, and writes all of it with that bit: what the controller\n"
    "changes in the word meanwhile is lost, so only D and Z take it. X cannot be\n"
    "written. All assignments are checked before the first is sent. Exit code 1 when\n"
    "a station did not answer or refused.",
    "kxhost write D100=1234 Y10=1 32CV200=100000 --port /dev/ttyUSB0\n"
    "kxhost write D100/float=12.5 D110/ascii:4=Batch7 D120.5=1 --port /dev/ttyUSB0\n"
    "kxhost write pump_speed=12.5 --tags line3.csv --port /dev/ttyUSB0\n"
    "kxhost write M0=1,0,1,1 D100@2=0x10,-5 --tcp 192.168.0.5 --json\n"
    "kxhost write D100=1 --simulate"};

bool parseWrite(const QString& text, const QList<Tag>& tags, const ValueFormat& order,
                ConnectionOptions* options, TagAssignment* assignment, QString* error)
{
    if (!parseTagAssignment(text, tags, order, assignment, error))
        return false;
    AddressRange& range = assignment->assignment.range;
    const QString fault = requestFault(assignment->tag, options->session.maxWords);
    if (!fault.isEmpty()) {
        *error = faultyText(text, fault);
        return false;
    }
    if (range.station < 0)
        range.station = options->station;
    assignment->tag.range.station = range.station;
    simulateStation(range.station, options);
    return true;
}

bool parseWriteOptions(const QCommandLineParser& parser, ConnectionOptions* options,
                       QList<TagAssignment>* assignments, QString* error)
{
    QList<Tag> tags;
    ValueFormat order;
    if (!parseConnectionOptions(parser, options, error)
        || !parseNames(parser, options->station, &tags, error)
        || !parseWordOrder(parser, &order, error))
        return false;
    for (const QString& text : parser.positionalArguments()) {
        TagAssignment assignment;
        if (!parseWrite(text, tags, order, options, &assignment, error))
            return false;
        assignments->append(assignment);
    }
    if (assignments->isEmpty())
        *error = QStringLiteral("nothing to write; name assignments such as D100=1234");
    return !assignments->isEmpty();
}

int write(const ConnectionOptions& options, const QList<TagAssignment>& assignments)
{
    HostSession host;
    const int result = openSession(options, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options);
    QList<Assignment> wanted;
    for (const TagAssignment& assignment : assignments)
        wanted << assignment.assignment;
    WriteJob job(host.session.get(), wanted);
    // The outcomes come in the order of the assignments.
    int told = 0;
    QObject::connect(&job, &WriteJob::assignmentFinished, [&](const WriteOutcome& outcome) {
        const TagAssignment& assignment = assignments.at(told++);
        if (options.json)
            printJson(writeJson(assignment, outcome));
        else
            say(writeRow(assignment, outcome));
    });
    runToItsEnd(host.session.get(), &job);
    return job.failure().isNone() ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

} // namespace

int runWrite(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addNamesOption(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, WRITE_HELP, &exitCode))
        return exitCode;
    ConnectionOptions options;
    QList<TagAssignment> assignments;
    QString error;
    if (!parseWriteOptions(parser, &options, &assignments, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return write(options, assignments);
}

} // namespace kx
