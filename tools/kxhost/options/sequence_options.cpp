#include "kxhost/options/sequence_options.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/tags_arguments.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace kx
{

namespace
{

bool takeFile(const QStringList& arguments, SequenceOptions* options, QString* error)
{
    if (arguments.size() == 1) {
        options->file = arguments.first();
        return true;
    }
    *error =
        arguments.isEmpty()
            ? QStringLiteral("nothing to run; name the file of a sequence")
            : QStringLiteral("%1: unexpected; one sequence is run at a time").arg(arguments.at(1));
    return false;
}

/// Whatever links lead to it.
bool isSameFile(const QString& one, const QString& other)
{
    const auto pathOf = [](const QString& name) {
        const QFileInfo file(name);
        return file.exists() ? file.canonicalFilePath() : QDir::cleanPath(file.absoluteFilePath());
    };
    return pathOf(one) == pathOf(other);
}

bool takeReport(const QCommandLineParser& parser, SequenceOptions* options, QString* error)
{
    options->report = parser.value(QStringLiteral("junit"));
    if (!parser.isSet(QStringLiteral("junit")))
        return true;
    if (options->report.isEmpty())
        *error = QStringLiteral("--junit: needs the name of a file");
    else if (options->checks)
        *error =
            QStringLiteral("--junit: has no use with --check, which does nothing to report of");
    else if (isSameFile(options->report, options->file))
        *error = QStringLiteral("--junit %1: is the sequence itself").arg(options->report);
    return error->isEmpty();
}

/// What tells how the file is to be read.
bool parseReading(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    options->json = parser.isSet(QStringLiteral("json"));
    return parseStationOption(parser, &options->station, error)
           && parseLengthOptions(parser, &options->session, error);
}

} // namespace

void addSequenceOptions(QCommandLineParser* parser)
{
    parser->addOption({QStringLiteral("tags"),
                       QStringLiteral("Take the names of a tags file; may be given several times."),
                       QStringLiteral("FILE")});
    addWordOrderOption(parser);
    parser->addOption({QStringLiteral("junit"),
                       QStringLiteral("Write a report in JUnit XML into this file, which is "
                                      "replaced."),
                       QStringLiteral("FILE")});
    parser->addOption({QStringLiteral("check"),
                       QStringLiteral("Only check the file, and show what each step is about; "
                                      "needs no line.")});
}

bool parseSequenceOptions(const QCommandLineParser& parser, SequenceOptions* options,
                          QString* error)
{
    options->checks = parser.isSet(QStringLiteral("check"));
    options->tagsFiles = parser.values(QStringLiteral("tags"));
    if (!takeFile(parser.positionalArguments(), options, error)
        || !takeReport(parser, options, error))
        return false;
    ConnectionOptions* const connection = &options->connection;
    return parseWordOrder(parser, &options->order, error)
           && (options->checks ? parseReading(parser, connection, error)
                               : parseConnectionOptions(parser, connection, error));
}

} // namespace kx
