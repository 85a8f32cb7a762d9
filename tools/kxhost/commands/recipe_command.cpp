#include "kxhost/commands/commands.h"

#include "addresses/request_limits.h"
#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/recipe_progress.h"
#include "panel/jobs/recipe_job.h"
#include "panel/recipe/recipe_file.h"
#include "panel/recipe/recipe_storage.h"
#include "panel/text/counted.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace kx
{

namespace
{

const CommandHelp RECIPE_HELP = {
    "recipe download|upload [options] FILE.csv",
    "download sends the values in the file to the controllers; upload reads them from\n"
    "the controllers and replaces the values in the file, once all have arrived.\n"
    "\n"
    "The file has a header line and a row for each value:\n"
    "  name,station,register,address,type,value\n"
    "  Speed,1,D,100,uint16,1234\n"
    "  \"Belt, left\",1,Y,17,bit,1\n"
    "The columns may stand in any order, separated by commas, semicolons or tabs; only\n"
    "value is needed. Text is UTF-8, or UTF-16 with a byte-order mark. Fields may stand\n"
    "in double quotes; blank lines and lines that begin with # are kept. An empty\n"
    "station is that of --station. X and Y addresses are octal. Types:\n"
    "  bit                   X Y M SM S T C (X cannot be downloaded)\n"
    "  uint16, int16, hex16  D SD CV TV Z\n"
    "  uint32, int32         32CV, or two registers of D SD CV TV Z, low word first\n"
    "  float                 two registers of D SD CV TV Z, low word first\n"
    "Instead of a type a row may have what a tags file has: format, order, scale,\n"
    "offset, unit, decimals, min and max, and its whole address in address:\n"
    "  name,address,format,scale,offset,min,max,value\n"
    "  Pressure,D100,s16,0.1,5,0,16,12.5\n"
    "A row without an address takes all of this from the tag of its name (--tags).\n"
    "Values are decimal or 0x hexadecimal, or as their format has them. An upload needs\n"
    "none and keeps the writing of those that are still right. No value of several\n"
    "registers is cut. Requests have at most 123 registers, whatever\n"
    "--max-words says. Exit code 1 when the transfer is not complete or the file cannot\n"
    "be replaced.",
    "kxhost recipe download filling.csv --port /dev/ttyUSB0\n"
    "kxhost recipe upload filling.csv --tcp 192.168.0.5\n"
    "kxhost recipe download batch.csv --tags line3.csv --port /dev/ttyUSB0\n"
    "kxhost recipe download filling.csv --simulate"};

struct RecipeOptions {
    ConnectionOptions connection;
    RecipeDirection direction = RecipeDirection::Download;
    QString path;
    RecipeDefaults defaults;
    RecipeFile file;
    RecipeLayout layout;
};

bool parseDirection(const QStringList& arguments, RecipeOptions* options, QString* error)
{
    const QString direction = arguments.value(0);
    const bool isDownload = direction == QStringLiteral("download");
    if (!isDownload && direction != QLatin1String("upload")) {
        *error = QStringLiteral("write recipe download FILE.csv or recipe upload FILE.csv");
        return false;
    }
    if (arguments.size() != 2) {
        *error =
            QStringLiteral("recipe %1 takes one file; write recipe %1 FILE.csv").arg(direction);
        return false;
    }
    options->direction = isDownload ? RecipeDirection::Download : RecipeDirection::Upload;
    options->path = arguments.at(1);
    return true;
}

bool takeRecipe(RecipeOptions* options, QString* error)
{
    ConnectionOptions& connection = options->connection;
    const QList<RecipeRow>& rows = options->file.rows();
    QByteArray text;
    if (!readRecipeFile(options->path, &text, error))
        return false;
    const bool isGood =
        RecipeFile::parse(text, options->defaults, &options->file, error)
        && (options->direction == RecipeDirection::Upload || canBeDownloaded(rows, error))
        && layOutRecipe(rows, connection.session.maxWords, &options->layout, error);
    if (!isGood)
        *error = QStringLiteral("%1: %2").arg(options->path, *error);
    for (const RecipeRow& row : rows)
        simulateStation(row.range.station, &connection);
    return isGood;
}

bool parseRecipeOptions(const QCommandLineParser& parser, RecipeOptions* options, QString* error)
{
    int& maxWords = options->connection.session.maxWords;
    RecipeDefaults& defaults = options->defaults;
    if (!parseConnectionOptions(parser, &options->connection, error)
        || !parseDirection(parser.positionalArguments(), options, error)
        || !parseWordOrder(parser, &defaults.order, error))
        return false;
    defaults.station = options->connection.station;
    if (!parseNames(parser, defaults.station, &defaults.tags, error))
        return false;
    maxWords = std::min(maxWords, MOST_REGISTERS_PER_WRITE);
    return takeRecipe(options, error)
           && (options->direction == RecipeDirection::Download
               || canReplaceRecipeFile(options->path, error));
}

RecipeProgressStyle styleFor(const ConnectionOptions& options)
{
    if (options.json)
        return RecipeProgressStyle::Json;
    return isStandardOutputTerminal() && !options.frames ? RecipeProgressStyle::Bar
                                                         : RecipeProgressStyle::Lines;
}

const int BLOCKS_NAMED = 5;

/// "D0:32@1, D32:32@1; perhaps also D64:32@1"
QString sentText(const RecipeJob& transfer)
{
    const QStringList& done = transfer.blocksDone();
    QString text = done.isEmpty() ? QStringLiteral("none")
                                  : done.mid(0, BLOCKS_NAMED).join(QStringLiteral(", "));
    if (done.size() > BLOCKS_NAMED)
        text += QStringLiteral(" and %1 more").arg(done.size() - BLOCKS_NAMED);
    if (!transfer.blockMaybeDone().isEmpty())
        text += QStringLiteral("; perhaps also %1").arg(transfer.blockMaybeDone());
    return text;
}

QString failureText(const RecipeJob& transfer, const RecipeOptions& options)
{
    const bool isUpload = options.direction == RecipeDirection::Upload;
    const QString rest = isUpload ? QStringLiteral("the file is unchanged")
                                  : QStringLiteral("blocks sent: %1").arg(sentText(transfer));
    return QStringLiteral("%1 of %2 stopped after %3 of %4: %5; %6")
        .arg(QLatin1String(isUpload ? "upload" : "download"), options.path)
        .arg(transfer.blocksDone().size())
        .arg(counted(transfer.blocks(), "block", "blocks"), transfer.failure().text, rest);
}

void printSummary(const RecipeJob& transfer, const RecipeOptions& options,
                  const QString& failure = QString())
{
    const bool isUpload = options.direction == RecipeDirection::Upload;
    const int rows = static_cast<int>(options.file.rows().size());
    if (!options.connection.json) {
        say(QStringLiteral("%1 %2 in %3")
                .arg(counted(rows, "value", "values"),
                     QLatin1String(isUpload ? "uploaded" : "downloaded"),
                     counted(transfer.blocks(), "block", "blocks")));
        return;
    }
    QJsonObject json;
    json[QLatin1String("event")] = QLatin1String(isUpload ? "upload" : "download");
    json[QLatin1String("values")] = rows;
    json[QLatin1String("blocks")] = QJsonArray::fromStringList(transfer.blocksDone());
    json[QLatin1String("complete")] = failure.isEmpty();
    if (!failure.isEmpty())
        json[QLatin1String("failure")] = failure;
    if (!isUpload && !transfer.blockMaybeDone().isEmpty())
        json[QLatin1String("maybeSent")] = transfer.blockMaybeDone();
    printJson(json);
}

int concludeFailed(const RecipeJob& transfer, const RecipeOptions& options, const QString& failure,
                   const QString& message)
{
    if (options.connection.json)
        printSummary(transfer, options, failure);
    return complain(message, EXIT_DEVICE_FAILED);
}

bool storeValues(const RecipeJob& transfer, const RecipeOptions& options, QString* error)
{
    const QByteArray text = options.file.withValues(transfer.values(options.file.rows()));
    return replaceRecipeFile(options.path, text, error);
}

int conclude(const RecipeJob& transfer, const RecipeOptions& options)
{
    if (!transfer.isComplete())
        return concludeFailed(transfer, options, transfer.failure().text,
                              failureText(transfer, options));
    QString error;
    if (options.direction == RecipeDirection::Upload && !storeValues(transfer, options, &error))
        return concludeFailed(transfer, options, error,
                              error + QLatin1String("; the file is unchanged"));
    printSummary(transfer, options);
    return EXIT_FINE;
}

int transferRecipe(const RecipeOptions& options)
{
    HostSession host;
    const int result = openSession(options.connection, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options.connection);
    RecipeJob transfer(host.session.get(), options.layout, options.direction);
    {
        RecipeProgress progress(styleFor(options.connection), transfer.blocks());
        QObject::connect(&transfer, &RecipeJob::blockDone, &transfer,
                         [&progress](const QString& block) { progress.showBlock(block); });
        runToItsEnd(host.session.get(), &transfer);
    }
    return conclude(transfer, options);
}

} // namespace

int runRecipe(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser);
    addNamesOption(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, RECIPE_HELP, &exitCode))
        return exitCode;
    RecipeOptions options;
    QString error;
    if (!parseRecipeOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return transferRecipe(options);
}

} // namespace kx
