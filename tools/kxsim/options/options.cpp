#include "kxsim/options/options.h"

#include "addresses/station_text.h"
#include "kxsim/options/fault_options.h"
#include "kxsim/options/help_text.h"
#include "kxsim/options/memory_options.h"
#include "kxsim/options/programme_options.h"
#include "kxsim/options/timing_options.h"
#include "system/character_format.h"
#include "system/repeated_option.h"

#include <QtCore/QCommandLineParser>

#include <modbus/modbus.h>

namespace kxsim
{

namespace
{

// What libmodbus can set; it falls back to 9600 in silence for all other rates.
const int BAUDS[] = {110,   300,   600,   1200,   2400,   4800,   9600,
                     19200, 38400, 57600, 115200, 230400, 460800, 921600};

struct CommandLine {
    QCommandLineOption station = {
        {"a", "station"}, "Station to simulate, 1 to 247; repeatable (default 1).", "NUMBER"};
    QCommandLineOption symlink = {
        "symlink", "Link to make to the pseudo-terminal; one of a running kxsim is kept.", "PATH"};
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
        parser.addOption(station);
        parser.addOptions(memoryOptions() + programmeOptions() + timingOptions() + faultOptions());
        parser.addOptions({symlink, log, port, baud, parity, dataBits, stopBits, help, version});
    }
};

/// "unknown option 'speed'; kxsim --help shows the options"
QString parserFault(const QCommandLineParser& parser)
{
    QString fault = parser.errorText();
    fault.replace(0, 1, fault.at(0).toLower());
    if (fault.endsWith(QLatin1Char('.')))
        fault.chop(1);
    return fault + QStringLiteral("; kxsim --help shows the options");
}

/// All that hold a list; every other option takes one value.
QStringList repeatableOptions(const CommandLine& line)
{
    return line.station.names() + QStringList{QStringLiteral("set"),   QStringLiteral("wave"),
                                              QStringLiteral("timer"), QStringLiteral("counter"),
                                              QStringLiteral("fault"), QStringLiteral("down")};
}

bool refuseOption(QString* error, const QString& message)
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
            return refuseOption(error, QStringLiteral("--station %1: the station must be %2 to %3")
                                           .arg(text, QString::number(kx::LOWEST_STATION),
                                                QString::number(kx::HIGHEST_STATION)));
        options->simulation.stations << station;
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
    return refuseOption(error, QStringLiteral("--%1 %2: must be one of %3")
                                   .arg(option, text, choices.join(QStringLiteral(", "))));
}

bool takePort(const CommandLine& line, Options* options, QString* error)
{
    const QCommandLineParser& parser = line.parser;
    PortSettings& port = options->port;
    port.device = parser.value(line.port);
    options->link = parser.value(line.symlink);
    if (parser.isSet(line.port) && port.device.isEmpty())
        return refuseOption(error, QStringLiteral("--port: the name of the port is missing"));
    if (parser.isSet(line.symlink) && options->link.isEmpty())
        return refuseOption(error, QStringLiteral("--symlink: the name of the link is missing"));
    if (parser.isSet(line.port) && parser.isSet(line.symlink))
        return refuseOption(error,
                            QStringLiteral("--symlink links to a pseudo-terminal, not to --port"));
    const int stopBits[] = {1, 2};
    return kx::parseDataBits(parser.value(line.dataBits), error)
           && parseNumber(QStringLiteral("baud"), parser.value(line.baud), BAUDS, &port.baud, error)
           && parseNumber(QStringLiteral("stop-bits"), parser.value(line.stopBits), stopBits,
                          &port.stopBits, error)
           && kx::parseParity(parser.value(line.parity), &port.parity, error);
}

bool canCloseLine(const Options& options, QString* error)
{
    if (options.simulation.faults.holds(Fault::Close) && options.port.device.isEmpty()
        && options.link.isEmpty())
        return refuseOption(error,
                            QStringLiteral("--fault close needs --symlink: a pseudo-terminal that "
                                           "is opened again has another name"));
    return true;
}

bool takeAll(const CommandLine& line, Options* options, QString* error)
{
    Simulation* const simulation = &options->simulation;
    options->logs = line.parser.isSet(line.log);
    return takeStations(line.parser.values(line.station), options, error)
           && takeMemory(line.parser, options, error)
           && takeProgramme(line.parser, simulation, error)
           && takeTiming(line.parser, simulation, error) && takePort(line, options, error)
           && takeFaults(line.parser, simulation, error) && canCloseLine(*options, error);
}

} // namespace

bool parseOptions(const QStringList& arguments, Options* options, QString* error)
{
    CommandLine line;
    if (!line.parser.parse(arguments))
        return refuseOption(error, parserFault(line.parser));
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
        return refuseOption(error,
                            QStringLiteral("unexpected argument '%1'; a port is named with --port")
                                .arg(line.parser.positionalArguments().first()));
    const QString repeated = kx::repeatedOption(line.parser, repeatableOptions(line));
    return repeated.isEmpty() ? takeAll(line, options, error) : refuseOption(error, repeated);
}

} // namespace kxsim
