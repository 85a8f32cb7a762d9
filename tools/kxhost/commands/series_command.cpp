#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/series_run.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/offline_options.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

namespace kx
{

namespace
{

const CommandHelp SERIES_HELP = {
    "series [options] ADDRESS",
    "Shows the addresses that the driver gives to copies of a tag: the address, then\n"
    "each further one by the step. Those past the type's highest address become the\n"
    "highest, and a line on standard error says so. Needs no controller.",
    "kxhost series D100 --count 8 --step 2\n"
    "kxhost series X370 --count 4 --step 4\n"
    "kxhost series D10 --count 5 --step -2 --json"};

const int MOST_COPIES = 65536;
const int LONGEST_STEP = 65535;

struct SeriesOptions {
    AddressRange start;
    int count = 8;
    int step = 1;
};

void addSeriesOptions(QCommandLineParser* parser)
{
    parser->addOption({{QLatin1String("n"), QLatin1String("count")},
                       QLatin1String("Number of addresses (default 8)."),
                       QLatin1String("COUNT")});
    parser->addOption({QLatin1String("step"),
                       QLatin1String("Distance of one address to the next, in decimal; may be "
                                     "negative (default 1)."),
                       QLatin1String("STEP")});
    addOfflineOptions(parser);
}

bool parseStart(const QStringList& addresses, AddressRange* start, QString* error)
{
    if (addresses.size() != 1) {
        *error = QStringLiteral("name one address to start from, such as D100");
        return false;
    }
    const QString& address = addresses.first();
    if (address.contains(QLatin1Char(':')) || address.contains(QLatin1Char('@'))) {
        *error = QStringLiteral("%1: a series starts from one address, without count or "
                                "station")
                     .arg(address);
        return false;
    }
    return parseAddressRange(address, start, error);
}

bool parseSeriesOptions(const QCommandLineParser& parser, SeriesOptions* options, QString* error)
{
    return parseStart(parser.positionalArguments(), &options->start, error)
           && parseNumber(parser, "count", 1, MOST_COPIES, &options->count, error)
           && parseNumber(parser, "step", -LONGEST_STEP, LONGEST_STEP, &options->step, error);
}

void showSeries(const Series& series, bool json)
{
    if (json) {
        for (const SeriesRow& row : series.rows)
            printJson(seriesJson(series.type, row));
    } else {
        for (const QString& line : seriesRows(series))
            say(line);
    }
    const QString notice = seriesNotice(series);
    if (!notice.isEmpty())
        complain(notice, EXIT_FINE);
}

} // namespace

int runSeries(const QStringList& arguments)
{
    QCommandLineParser parser;
    addSeriesOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, SERIES_HELP, &exitCode))
        return exitCode;
    SeriesOptions options;
    QString error;
    if (!parseSeriesOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    DriverEntryPoints entryPoints;
    exitCode = openDriver(askedLibrary(parser), &entryPoints);
    if (exitCode != EXIT_FINE)
        return exitCode;
    showSeries(askForSeries(entryPoints, options.start, options.count, options.step),
               wantsJson(parser));
    return EXIT_FINE;
}

} // namespace kx
