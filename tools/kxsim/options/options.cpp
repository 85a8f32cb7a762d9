#include "kxsim/options/options.h"

#include "addresses/station_text.h"
#include "system/character_format.h"

#include <QtCore/QCommandLineParser>

#include <modbus/modbus.h>

namespace kxsim
{

namespace
{

const char* const USAGE =
    "Usage: kxsim [options]\n"
    "Simulated controllers: Modbus RTU slaves with the whole register map. Opens a\n"
    "pseudo-terminal and prints its name, or uses a serial port, until it is ended by\n"
    "Ctrl-C or a signal.\n";

const char* const EXAMPLES =
    "\n"
    "Addresses: TYPENUMBER[:COUNT][@STATION], such as D100:4, X17 or 32CV200@2.\n"
    "X and Y are octal (X10 follows X7), all other types decimal. Types: X Y M SM S T C D\n"
    "SD CV 32CV TV Z. Without @STATION values are set at all stations, and shown of the\n"
    "lowest.\n"
    "\n"
    "Without --still these values move: D0 and 32CV200 count up, D1 is a slow wave, M0 and\n"
    "Y0 toggle, TV0 and T0 are a timer. A preset value stays still.\n"
    "\n"
    "Commands on standard input, one per line:\n"
    "  get D100:4       print the values as D100=1,2,3,4\n"
    "  set X17=1        set the sixteenth input; it stays still from then on\n"
    "  faults           print how many requests met which fault\n"
    "\n"
    "Faults, at most one per request; all:0.1 gives each kind an equal share of 10 %:\n"
    "  deaf             the request is not heard: not carried out, no reply\n"
    "  silence          carried out, no reply\n"
    "  delay            the reply comes late by --fault-delay\n"
    "  corrupt          one byte of the reply is another\n"
    "  truncate         the reply ends early\n"
    "  extra-before     1 to 8 bytes of noise, then the reply\n"
    "  extra-after      the reply, then 1 to 8 bytes of noise\n"
    "  duplicate        the reply twice\n"
    "  other-station    the same reply, from another station\n"
    "  exception        refused as busy (exception 6), not carried out\n"
    "  echo             the request comes back, then the reply\n"
    "  close            no reply; the line is closed and opened again\n"
    "The counts are printed at the end, too. The same seed and requests give the same\n"
    "faults.\n"
    "\n"
    "Examples:\n"
    "  kxsim\n"
    "  kxsim --set D100=1234 --set M0=1,0,1,1 --set X17=1\n"
    "  kxsim --station 1 --station 2 --set D100@2=5\n"
    "  kxsim --port /dev/ttyUSB0 --baud 19200 --parity even --log\n"
    "  kxsim --symlink /tmp/line --fault all:0.1 --fault-seed 7\n"
    "  kxsim --fault silence:0.01 --fault corrupt:0.02\n"
    "\n"
    "Writes of X are refused (exception 2), as are addresses outside the register map; other\n"
    "functions than 1, 3, 5, 6, 15 and 16 with exception 1, wrong counts with exception 3.\n"
    "\n"
    "Exit codes: 0 ended by Ctrl-C or a signal, 2 wrong usage, 3 the port cannot be opened or\n"
    "was lost, or the link cannot be made.\n";

// What libmodbus can set; it falls back to 9600 in silence for all other rates.
const int BAUDS[] = {110,   300,   600,   1200,   2400,   4800,   9600,
                     19200, 38400, 57600, 115200, 230400, 460800, 921600};

struct CommandLine {
    QCommandLineOption station = {
        {"a", "station"}, "Station to simulate, 1 to 247; repeatable (default 1).", "NUMBER"};
    QCommandLineOption set = {"set", "Preset values; repeatable.", "ADDRESS=VALUE[,VALUE...]"};
    QCommandLineOption still = {"still", "Let no value move."};
    QCommandLineOption symlink = {
        "symlink", "Link to make to the pseudo-terminal; one of a running kxsim is kept.", "PATH"};
    QCommandLineOption fault = {
        "fault", "Let requests meet a fault with a probability from 0 to 1; repeatable.",
        "KIND:PROBABILITY"};
    QCommandLineOption faultSeed = {
        "fault-seed", "Seed of the faults, for repeatable runs (default 1).", "NUMBER", "1"};
    QCommandLineOption faultDelay = {
        "fault-delay", "Milliseconds that delayed replies are late (default 1500).", "MS", "1500"};
    QCommandLineOption log = {{"l", "log"}, "Print requests and replies in hex on standard error."};
    QCommandLineOption port = {
        {"p", "port"}, "Serial port to use instead, such as /dev/ttyUSB0.", "DEVICE"};
    QCommandLineOption baud = {{"b", "baud"}, "Bits per second (default 9600).", "BAUD", "9600"};
    QCommandLineOption parity = {"parity", "Parity: none, even or odd (default none).", "PARITY",
                                 "none"};
    QCommandLineOption dataBits = {"data-bits", "Data bits: 8, which Modbus RTU needs.", "BITS",
                                   "8"};
    QCommandLineOption stopBits = {"stop-bits", "Stop bits, 1 or 2 (default 1).", "BITS", "1"};
    QCommandLineOption help = {{"h", "help"}, "Show this help."};
    QCommandLineOption version = {{"v", "version"},
                                  "Show the versions of kxsim, Qt and libmodbus."};
    QCommandLineParser parser;

    CommandLine()
    {
        parser.addOptions({station, set, still, symlink, fault, faultSeed, faultDelay, log, port,
                           baud, parity, dataBits, stopBits, help, version});
    }
};

// The parser's own usage line names the program's path.
QString helpText(const QCommandLineParser& parser)
{
    const QString options = parser.helpText();
    return QString::fromLatin1(USAGE) + options.mid(options.indexOf(QLatin1Char('\n')) + 1)
           + QString::fromLatin1(EXAMPLES);
}

/// "unknown option 'speed'; kxsim --help shows the options"
QString parserFault(const QCommandLineParser& parser)
{
    QString fault = parser.errorText();
    fault.replace(0, 1, fault.at(0).toLower());
    if (fault.endsWith(QLatin1Char('.')))
        fault.chop(1);
    return fault + QStringLiteral("; kxsim --help shows the options");
}

bool fail(QString* error, const QString& message)
{
    *error = message;
    return false;
}

bool takeStations(const QStringList& texts, Options* options, QString* error)
{
    if (!texts.isEmpty())
        options->simulation.stations.clear();
    for (const QString& text : texts) {
        int station = 0;
        if (!kx::parseStation(text, &station))
            return fail(error, QStringLiteral("--station %1: the station must be %2 to %3")
                                   .arg(text, QString::number(kx::LOWEST_STATION),
                                        QString::number(kx::HIGHEST_STATION)));
        options->simulation.stations << station;
    }
    return true;
}

bool takePresets(const QStringList& texts, Options* options, QString* error)
{
    for (const QString& text : texts) {
        kx::Assignment preset;
        if (!kx::parseAssignment(text, &preset, error))
            return false;
        const int station = preset.range.station;
        if (station >= 0 && !options->simulation.stations.contains(station))
            return fail(error, QStringLiteral("%1: station %2 is not simulated; add --station %2")
                                   .arg(text, QString::number(station)));
        options->simulation.presets << preset;
    }
    return true;
}

// The number in the option's value when it is one of the allowed.
template <typename Allowed>
bool parseNumber(const QString& option, const QString& text, const Allowed& allowed, int* number,
                 QString* error)
{
    QStringList choices;
    *number = text.toInt();
    for (const int choice : allowed) {
        if (choice == *number)
            return true;
        choices << QString::number(choice);
    }
    return fail(error, QStringLiteral("--%1 %2: must be one of %3")
                           .arg(option, text, choices.join(QStringLiteral(", "))));
}

bool takePort(const CommandLine& line, Options* options, QString* error)
{
    const QCommandLineParser& parser = line.parser;
    PortSettings& port = options->port;
    port.device = parser.value(line.port);
    options->link = parser.value(line.symlink);
    if (parser.isSet(line.port) && port.device.isEmpty())
        return fail(error, QStringLiteral("--port: the name of the port is missing"));
    if (parser.isSet(line.symlink) && options->link.isEmpty())
        return fail(error, QStringLiteral("--symlink: the name of the link is missing"));
    if (parser.isSet(line.port) && parser.isSet(line.symlink))
        return fail(error, QStringLiteral("--symlink links to a pseudo-terminal, not to --port"));
    const int stopBits[] = {1, 2};
    return kx::parseDataBits(parser.value(line.dataBits), error)
           && parseNumber(QStringLiteral("baud"), parser.value(line.baud), BAUDS, &port.baud, error)
           && parseNumber(QStringLiteral("stop-bits"), parser.value(line.stopBits), stopBits,
                          &port.stopBits, error)
           && kx::parseParity(parser.value(line.parity), &port.parity, error);
}

bool takeFaults(const CommandLine& line, Options* options, QString* error)
{
    FaultPlan& faults = options->simulation.faults;
    for (const QString& text : line.parser.values(line.fault)) {
        if (!addFault(text, &faults, error))
            return false;
    }
    if (faults.holds(Fault::Close) && options->port.device.isEmpty() && options->link.isEmpty())
        return fail(error, QStringLiteral("--fault close needs --symlink: a pseudo-terminal that "
                                          "is opened again has another name"));
    return parseFaultSeed(line.parser.value(line.faultSeed), &faults, error)
           && parseFaultDelay(line.parser.value(line.faultDelay), &faults, error);
}

} // namespace

bool parseOptions(const QStringList& arguments, Options* options, QString* error)
{
    CommandLine line;
    if (!line.parser.parse(arguments))
        return fail(error, parserFault(line.parser));
    if (line.parser.isSet(line.help)) {
        options->information = helpText(line.parser);
        return true;
    }
    if (line.parser.isSet(line.version)) {
        options->information = QStringLiteral("kxsim " KX_VERSION "\nQt %1\nlibmodbus %2.%3.%4\n")
                                   .arg(QLatin1String(qVersion()))
                                   .arg(libmodbus_version_major)
                                   .arg(libmodbus_version_minor)
                                   .arg(libmodbus_version_micro);
        return true;
    }
    if (!line.parser.positionalArguments().isEmpty())
        return fail(error, QStringLiteral("unexpected argument '%1'; a port is named with --port")
                               .arg(line.parser.positionalArguments().first()));
    options->logs = line.parser.isSet(line.log);
    options->simulation.moves = !line.parser.isSet(line.still);
    return takeStations(line.parser.values(line.station), options, error)
           && takePresets(line.parser.values(line.set), options, error)
           && takePort(line, options, error) && takeFaults(line, options, error);
}

} // namespace kxsim
