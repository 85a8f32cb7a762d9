#include "kxhost/commands/commands.h"

#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/scan_stations.h"
#include "kxhost/scan/scan_run.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"

namespace kx
{

namespace
{

const CommandHelp SCAN_HELP = {
    "scan [options]",
    "Asks every station once for D0 and shows who answers; a refusal is an answer, too.\n"
    "Waits 200 ms for each (--timeout) and repeats nothing. Ctrl-C stops it.\n"
    "--baud auto and --parity auto try rates and parities, likeliest first, until a\n"
    "station answers; the other stations are asked with what was found.\n"
    "Exit code 0 when a station answered, 1 when none did or the line was lost.",
    "kxhost scan --port /dev/ttyUSB0\n"
    "kxhost scan --stations 1-20,100 --tcp 192.168.0.5 --timeout 500\n"
    "kxhost scan --baud auto --parity auto --port /dev/ttyUSB0\n"
    "kxhost scan --stations 1-5 --simulate --json"};

const int SHORT_TIMEOUT = 200; // milliseconds
const char* const ALL_STATIONS = "1-247";
const QStringList NOT_FOR_SCANS = {QStringLiteral("station"), QStringLiteral("retries"),
                                   QStringLiteral("max-words"), QStringLiteral("max-bits")};

struct ScanOptions {
    ConnectionOptions connection;
    QList<int> stations;
};

bool parseScanOptions(const QCommandLineParser& parser, ScanOptions* options, QString* error)
{
    ConnectionOptions& connection = options->connection;
    if (!parser.positionalArguments().isEmpty()) {
        *error = QStringLiteral("%1: unexpected; a scan takes --stations")
                     .arg(parser.positionalArguments().first());
        return false;
    }
    for (const QString& option : NOT_FOR_SCANS) {
        if (parser.isSet(option)) {
            *error = QStringLiteral("--%1: a scan has no use for it; it asks each station of "
                                    "--stations once")
                         .arg(option);
            return false;
        }
    }
    if (!parseStations(parser.value(QLatin1String("stations")), &options->stations, error))
        return false;
    connection.session.exchange.replyTimeout = SHORT_TIMEOUT;
    connection.takesAuto = true;
    if (!parseConnectionOptions(parser, &connection, error))
        return false;
    if ((connection.anyBaud || connection.anyParity) && !connection.gateway.host.isEmpty()) {
        *error = QStringLiteral("auto needs --port: behind --tcp the gateway sets its serial line");
        return false;
    }
    connection.session.retries = 1;
    simulateStation(options->stations.first(), &connection);
    return true;
}

char letterOf(QSerialPort::Parity parity)
{
    if (parity == QSerialPort::NoParity)
        return 'N';
    return parity == QSerialPort::EvenParity ? 'E' : 'O';
}

/// What --baud auto and --parity auto leave to be tried.
QList<LineFormat> formatsOf(const ConnectionOptions& options)
{
    const LineFormat given = {options.timing.baud, letterOf(options.parity)};
    return formatsToTry(given, options.anyBaud, options.anyParity);
}

} // namespace

int runScan(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({QLatin1String("stations"),
                      QLatin1String("Stations to ask, such as 1-20,100 (default 1-247)."),
                      QLatin1String("LIST"), QLatin1String(ALL_STATIONS)});
    addConnectionOptions(&parser, SHORT_TIMEOUT, NOT_FOR_SCANS);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, SCAN_HELP, &exitCode))
        return exitCode;
    ScanOptions options;
    QString error;
    if (!parseScanOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return ScanRun(options.connection, formatsOf(options.connection), options.stations).run();
}

} // namespace kx
