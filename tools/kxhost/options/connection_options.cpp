#include "kxhost/options/connection_options.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/options/length_options.h"
#include "kxhost/options/port_options.h"
#include "system/translated_text.h"

#include <QtNetwork/QHostAddress>

namespace kx
{

namespace
{

struct OptionText {
    const char* names;       ///< separated by commas
    const char* description; ///< %1 stands for the usual time-out
    const char* valueName;   ///< null: a switch
};

const OptionText CONNECTION_OPTIONS[] = {
    {"tcp", "Network gateway to the serial line (default port 8888; of Modbus TCP, 502).",
     "HOST[:PORT]"},
    {"protocol",
     "What the gateway takes: rtu, the serial line's bytes, or tcp, Modbus TCP (default rtu).",
     "PROTOCOL"},
    {"simulate", "Start a simulated controller inside and talk to it.", nullptr},
    {"fault",
     "Fault of the simulated line and its probability, 0 to 1; kxsim --help lists the kinds; "
     "repeatable.",
     "KIND:PROBABILITY"},
    {"fault-seed", "Seed of the faults, for repeatable runs (default 1).", "NUMBER"},
    {"fault-delay", "Milliseconds that delayed replies are late (default 1500).", "MS"},
    {"a,station", "Station of addresses without @STATION (default 1).", "STATION"},
    {"t,timeout", "Milliseconds to wait for a reply (default %1).", "MS"},
    {"settle",
     "Milliseconds after the time-out in which a late reply may still come; requests that it "
     "could be taken to answer wait so long (default as --timeout; with --protocol tcp 0).",
     "MS"},
    {"quiet",
     "Milliseconds of silence before each request (default, and at least, the time of 3.5 "
     "characters; on a gateway 0).",
     "MS"},
    {"r,retries", "Bad or missing replies in a row after which a request has failed (default 3).",
     "COUNT"},
    {"reopen", "Seconds in which a lost line is opened again (default 0: end at once).", "SECONDS"},
    {"max-words",
     "The longest request: so many registers, up to which the driver joins them; or auto: what "
     "takes the least time on the line and each station answers (default: auto where addresses "
     "are read, else 32).",
     "COUNT|auto"},
    {"max-bits", "The longest request for watched coils (default 2000).", "COUNT"},
    {"library",
     "File of the driver library (default: the one beside the program, else the system's).",
     "PATH"},
    {"frames", "Show every request and reply, in hexadecimal.", nullptr},
    {"json", "Write JSON, an object per line.", nullptr},
};

const quint16 MODBUS_TCP_PORT = 502;
const int LONGEST_REPLY_TIMEOUT = 60000; // milliseconds
const int LONGEST_PATIENCE = 86400;      // seconds
const int SECOND = 1000;                 // milliseconds
const int MOST_RETRIES = 100;

QString textOf(const QCommandLineParser& parser, const char* option)
{
    return parser.value(QLatin1String(option));
}

bool isSet(const QCommandLineParser& parser, const char* option)
{
    return parser.isSet(QLatin1String(option));
}

bool parseCharacters(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    const auto isAuto = [&](const char* option) {
        return options->takesAuto && textOf(parser, option) == QLatin1String("auto");
    };
    options->anyBaud = isAuto("baud");
    options->anyParity = isAuto("parity");
    char parity = 'N';
    const OpenTiming open = {options->anyBaud, options->anyParity};
    if (!parseTiming(parser, &options->timing, &parity, error, open))
        return false;
    if (parity != 'N')
        options->parity = parity == 'E' ? QSerialPort::EvenParity : QSerialPort::OddParity;
    return true;
}

/// Before the gateway, of which the port depends on it, and the numbers.
bool parseProtocol(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    if (!isSet(parser, "protocol"))
        return true;
    const QString typed = textOf(parser, "protocol");
    const bool isTcp = typed == QLatin1String("tcp");
    if (!isTcp && typed != QLatin1String("rtu"))
        *error = Text::tr("--protocol %1: must be rtu or tcp").arg(typed);
    else if (!isSet(parser, "tcp"))
        *error = Text::tr("--protocol needs --tcp; a serial line carries Modbus RTU");
    if (!error->isEmpty() || !isTcp)
        return error->isEmpty();
    options->protocol = GatewayProtocol::Tcp;
    options->gateway.port = MODBUS_TCP_PORT;
    options->session.exchange.settle = 0; // transactions tell late replies apart
    return true;
}

bool parseGateway(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    if (!isSet(parser, "tcp"))
        return true;
    const QString text = textOf(parser, "tcp");
    if (parseGatewayAddress(text, &options->gateway))
        return true;
    *error = Text::tr("--tcp %1: must be HOST or HOST:PORT").arg(text);
    if (QHostAddress(text).protocol() == QAbstractSocket::IPv6Protocol)
        *error = Text::tr("%1; write an IPv6 address in brackets, [%2]").arg(*error, text);
    return false;
}

bool parseNumbers(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    SessionSettings& session = options->session;
    return parseStationOption(parser, &options->station, error)
           && parseNumber(parser, "timeout", 1, LONGEST_REPLY_TIMEOUT,
                          &session.exchange.replyTimeout, error, NumberUnit::Milliseconds)
           && parseNumber(parser, "settle", 0, LONGEST_REPLY_TIMEOUT, &session.exchange.settle,
                          error, NumberUnit::Milliseconds)
           && parseNumber(parser, "quiet", 0, LONGEST_REPLY_TIMEOUT, &session.exchange.quiet, error,
                          NumberUnit::Milliseconds)
           && parseNumber(parser, "retries", 1, MOST_RETRIES, &session.retries, error)
           && parseLengthOptions(parser, &session, error);
}

bool parsePatience(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    int seconds = 0;
    if (!parseNumber(parser, "reopen", 0, LONGEST_PATIENCE, &seconds, error, NumberUnit::Seconds))
        return false;
    options->patience = seconds * SECOND;
    return true;
}

bool parseFaults(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    for (const char* const option : {"fault", "fault-seed", "fault-delay"}) {
        if (isSet(parser, option) && !options->simulate) {
            *error = Text::tr("--%1 needs --simulate; kxsim has the same option")
                         .arg(QLatin1String(option));
            return false;
        }
    }
    for (const QString& text : parser.values(QLatin1String("fault"))) {
        if (!kxsim::addFault(text, &options->faults, error))
            return false;
    }
    return (!isSet(parser, "fault-seed")
            || kxsim::parseFaultSeed(textOf(parser, "fault-seed"), &options->faults, error))
           && (!isSet(parser, "fault-delay")
               || kxsim::parseFaultDelay(textOf(parser, "fault-delay"), &options->faults, error));
}

bool parseLine(const QCommandLineParser& parser, ConnectionOptions* options, QString* error)
{
    options->port = textOf(parser, "port");
    options->simulate = isSet(parser, "simulate");
    options->simulatedStations = {options->station};
    options->session.gatewayBaud = options->timing.baud;
    const int lines =
        int(isSet(parser, "port")) + int(isSet(parser, "tcp")) + int(isSet(parser, "simulate"));
    const bool isNameless = isSet(parser, "port") && options->port.isEmpty();
    if (lines == 1 && !isNameless)
        return true;
    *error = lines > 1 ? Text::tr("only one of --port, --tcp and --simulate can be used")
                       : Text::tr("no line; name one with --port or --tcp, or use --simulate");
    return false;
}

} // namespace

void addConnectionOptions(QCommandLineParser* parser, int timeout, const QStringList& hidden)
{
    addPortOption(parser);
    addFormatOptions(parser);
    for (const OptionText& option : CONNECTION_OPTIONS) {
        QCommandLineOption declared(QString::fromLatin1(option.names).split(QLatin1Char(',')));
        QString description = QString::fromLatin1(option.description);
        declared.setDescription(description.replace(QLatin1String("%1"), QString::number(timeout)));
        declared.setValueName(QLatin1String(option.valueName));
        if (hidden.contains(declared.names().last()))
            declared.setFlags(QCommandLineOption::HiddenFromHelp);
        parser->addOption(declared);
    }
    addPortOptions(parser);
}

bool parseConnectionOptions(const QCommandLineParser& parser, ConnectionOptions* options,
                            QString* error)
{
    options->library = textOf(parser, "library");
    options->frames = isSet(parser, "frames");
    options->json = isSet(parser, "json");
    return parseCharacters(parser, options, error) && parseProtocol(parser, options, error)
           && parseNumbers(parser, options, error) && parseGateway(parser, options, error)
           && parseLine(parser, options, error) && parsePortOptions(parser, &options->modes, error)
           && parsePatience(parser, options, error) && parseFaults(parser, options, error);
}

void simulateStation(int station, ConnectionOptions* options)
{
    if (!options->simulatedStations.contains(station))
        options->simulatedStations << station;
}

void simulateStationsOf(const QList<AddressRange>& ranges, ConnectionOptions* options)
{
    for (const AddressRange& range : ranges)
        simulateStation(range.station, options);
}

} // namespace kx
