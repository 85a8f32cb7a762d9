#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/commands/run_to_end.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/scan_stations.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/scan_progress.h"
#include "panel/jobs/scan_job.h"

namespace kx
{

namespace
{

const CommandHelp HELP = {
    "scan [options]",
    "Asks every station once for D0 and shows who answers; a refusal is an answer, too.\n"
    "Waits 200 ms for each (--timeout) and repeats nothing. Ctrl-C stops it.\n"
    "Exit code 0 when a station answered, 1 when none did or the line was lost.",
    "kxhost scan --port /dev/ttyUSB0\n"
    "kxhost scan --stations 1-20,100 --tcp 192.168.0.5 --timeout 500\n"
    "kxhost scan --stations 1-5 --simulate --json"};

const int SHORT_TIMEOUT = 200; // milliseconds
const char* const ALL_STATIONS = "1-247";
const QStringList UNUSED_OPTIONS = {QStringLiteral("station"), QStringLiteral("retries"),
                                    QStringLiteral("max-words"), QStringLiteral("max-bits")};

struct ScanOptions {
    ConnectionOptions connection;
    QList<int> stations;
};

bool parseOptions(const QCommandLineParser& parser, ScanOptions* options, QString* error)
{
    ConnectionOptions& connection = options->connection;
    if (!parser.positionalArguments().isEmpty()) {
        *error = QStringLiteral("%1: unexpected; a scan takes --stations")
                     .arg(parser.positionalArguments().first());
        return false;
    }
    for (const QString& option : UNUSED_OPTIONS) {
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
    if (!parseConnectionOptions(parser, &connection, error))
        return false;
    connection.session.retries = 1;
    simulateStation(options->stations.first(), &connection);
    return true;
}

/// Lines and, on a terminal, a bar below them.
class ScanView
{
public:
    ScanView(const ScanJob& job, int stations, bool json)
        : m_job(job), m_stations(stations), m_json(json), m_bar(!json && isStandardOutputTerminal())
    {
    }

    void showAnswer(const ScanReply& reply)
    {
        clearBar();
        if (m_json)
            printJson(scanJson(reply));
        else
            say(scanRow(reply));
    }

    void showProgress()
    {
        if (m_bar)
            print(QLatin1Char('\r') + scanBar(m_job.asked(), m_stations, m_job.answered()));
    }

    void showSummary()
    {
        clearBar();
        if (m_json)
            printJson(QJsonObject{{QLatin1String("event"), QLatin1String("summary")},
                                  {QLatin1String("stations"), m_job.asked()},
                                  {QLatin1String("answered"), m_job.answered()},
                                  {QLatin1String("notAsked"), m_stations - m_job.asked()}});
        else
            say(scanSummary(m_job.answered(), m_job.asked(), m_stations - m_job.asked()));
    }

private:
    void clearBar()
    {
        if (m_bar)
            print(QLatin1String("\r\033[K"));
    }

    const ScanJob& m_job;
    int m_stations;
    bool m_json;
    bool m_bar;
};

int scan(const ScanOptions& options)
{
    HostSession host;
    const int result = openSession(options.connection, &host);
    if (result != EXIT_FINE)
        return result;
    showFrames(host.session.get(), options.connection);
    ScanJob job(host.session.get(), options.stations);
    ScanView view(job, static_cast<int>(options.stations.size()), options.connection.json);
    QObject::connect(&job, &ScanJob::stationAnswered,
                     [&view](const ScanReply& reply) { view.showAnswer(reply); });
    QObject::connect(&job, &ScanJob::progress, [&view] { view.showProgress(); });
    runToItsEnd(host.session.get(), &job);
    view.showSummary();
    if (job.failure().kind == FailureKind::LineLost)
        return complain(job.failure().text, EXIT_DEVICE_FAILED);
    return job.answered() > 0 ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

} // namespace

int runScan(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({QLatin1String("stations"),
                      QLatin1String("Stations to ask, such as 1-20,100 (default 1-247)."),
                      QLatin1String("LIST"), QLatin1String(ALL_STATIONS)});
    addConnectionOptions(&parser, SHORT_TIMEOUT, UNUSED_OPTIONS);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, HELP, &exitCode))
        return exitCode;
    ScanOptions options;
    QString error;
    if (!parseOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    return scan(options);
}

} // namespace kx
