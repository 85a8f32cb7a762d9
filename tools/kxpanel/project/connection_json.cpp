#include "kxpanel/project/connection_json.h"

#include "addresses/request_limits.h"
#include "kxhost/options/length_options.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

// What of kxhost's options a project keeps; files of the driver and views are of the machine that
// the window runs on.
const char* const OPTIONS[] = {"port",     "baud",     "parity",     "data-bits", "stop-bits",
                               "tcp",      "protocol", "simulate",   "station",   "timeout",
                               "settle",   "quiet",    "retries",    "reopen",    "max-words",
                               "max-bits", "rs485",    "low-latency"};
const char* const LINES[] = {"port", "tcp", "simulate"};
const int MILLISECONDS_PER_SECOND = 1000;

QString mustBe(const QString& name)
{
    return QCoreApplication::translate("kxpanel::Project",
                                       "connection.%1: must be a text, a number or true")
        .arg(name);
}

// A limit that a person applied, within which lengths are chosen; --max-words fixes them.
const char* const LIMIT = "longest-request";

/// Where lengths are chosen. False when it is no such number.
bool takeLimit(QJsonObject* object, kx::SessionSettings* session, QStringList* faults)
{
    const QJsonValue value = object->take(QLatin1String(LIMIT));
    if (value.isUndefined())
        return true;
    const int words = value.toInt(); // 0 of what is no whole number
    if (words < 1 || words > kx::MOST_REGISTERS_PER_READ) {
        *faults << QCoreApplication::translate("kxpanel::Project",
                                               "connection.%1: must be a whole number from 1 to %2")
                       .arg(QLatin1String(LIMIT))
                       .arg(kx::MOST_REGISTERS_PER_READ);
        return false;
    }
    if (session->choosesLengths)
        session->maxWords = words;
    return true;
}

/// The options that the members name, as on a command line; false when one has no such value.
bool takeArguments(QJsonObject* object, QStringList* arguments, QStringList* faults)
{
    bool isRight = true;
    for (const char* const option : OPTIONS) {
        const QString name = QLatin1String(option);
        const QJsonValue value = object->take(name);
        const bool isLeftOut =
            value.isUndefined() || value == QJsonValue(false) || value == QJsonValue(QString());
        if (isLeftOut)
            continue;
        const bool isSwitch = name == QLatin1String("simulate");
        if (isSwitch ? !value.isBool() : (!value.isString() && !value.isDouble())) {
            *faults << mustBe(name);
            isRight = false;
            continue;
        }
        const QString text =
            value.isDouble() ? QString::number(value.toDouble(), 'g', 15) : value.toString();
        *arguments << (isSwitch ? QStringLiteral("--%1").arg(name)
                                : QStringLiteral("--%1=%2").arg(name, text));
    }
    return isRight;
}

bool namesLine(const QStringList& arguments)
{
    for (const QString& argument : arguments) {
        for (const char* const line : LINES) {
            if (argument.section(QLatin1Char('='), 0, 0)
                == QLatin1String("--") + QLatin1String(line))
                return true;
        }
    }
    return false;
}

/// "--baud 12: why" becomes "connection.baud: 12: why".
QString placedFault(const QString& error)
{
    if (!error.startsWith(QLatin1String("--")))
        return QStringLiteral("connection: ") + error;
    const QString name = error.mid(2).section(QLatin1Char(' '), 0, 0);
    return QStringLiteral("connection.%1: %2").arg(name, error.mid(name.size() + 3));
}

/// Puts members into an object where they differ from the usual.
struct Members {
    QJsonObject object;

    void put(const char* name, const QJsonValue& value, const QJsonValue& usual)
    {
        if (value != usual)
            object[QLatin1String(name)] = value;
    }
};

QString parityText(QSerialPort::Parity parity)
{
    return QLatin1String(parity == QSerialPort::NoParity     ? "none"
                         : parity == QSerialPort::EvenParity ? "even"
                                                             : "odd");
}

QString rs485Text(const kx::PortModes& modes)
{
    QStringList parts;
    if (modes.rtsBefore > 0)
        parts << QStringLiteral("rts-before:%1").arg(modes.rtsBefore);
    if (modes.rtsAfter > 0)
        parts << QStringLiteral("rts-after:%1").arg(modes.rtsAfter);
    if (modes.rtsLowToSend)
        parts << QStringLiteral("rts-low");
    return parts.isEmpty() ? QStringLiteral("on") : parts.join(QLatin1Char(','));
}

void putLine(const kx::ConnectionOptions& options, Members* members)
{
    if (!options.gateway.host.isEmpty()) {
        members->put("tcp", kx::gatewayText(options.gateway), QString());
        members->put("protocol",
                     QLatin1String(options.protocol == kx::GatewayProtocol::Tcp ? "tcp" : "rtu"),
                     QLatin1String("rtu"));
    } else if (options.simulate) {
        members->put("simulate", true, false);
    } else {
        members->put("port", options.port, QString());
        if (options.modes.rs485 && !options.port.isEmpty())
            members->put("rs485", rs485Text(options.modes), QString());
    }
    members->put("low-latency", QLatin1String(options.modes.lowLatency ? "yes" : "no"),
                 QLatin1String("yes"));
}

/// Modbus TCP knows late replies by themselves.
int usualSettle(const kx::ConnectionOptions& options)
{
    return options.protocol == kx::GatewayProtocol::Tcp && !options.gateway.host.isEmpty() ? 0 : -1;
}

} // namespace

kx::ConnectionOptions usualConnection()
{
    kx::ConnectionOptions options;
    options.session = kx::settingsForReading();
    return options;
}

bool parseConnectionJson(const QJsonObject& object, kx::ConnectionOptions* options,
                         QJsonObject* extra, QStringList* faults)
{
    QJsonObject rest = object;
    QStringList arguments = {QStringLiteral("kxpanel")};
    if (!takeArguments(&rest, &arguments, faults))
        return false;
    const bool hasLine = namesLine(arguments);
    if (!hasLine)
        arguments << QStringLiteral("--simulate"); // the parser asks for one
    QCommandLineParser parser;
    kx::addConnectionOptions(&parser);
    kx::ConnectionOptions read = usualConnection();
    QString error;
    if (!parser.parse(arguments))
        error = parser.errorText();
    else
        kx::parseConnectionOptions(parser, &read, &error);
    if (!error.isEmpty()) {
        *faults << placedFault(error);
        return false;
    }
    if (!takeLimit(&rest, &read.session, faults))
        return false;
    read.simulate = read.simulate && hasLine;
    *options = read;
    *extra = rest;
    return true;
}

QJsonObject connectionJson(const kx::ConnectionOptions& options, const QJsonObject& extra)
{
    const kx::ConnectionOptions usual = usualConnection();
    const kx::SessionSettings& session = options.session;
    Members members{extra};
    putLine(options, &members);
    members.put("baud", options.timing.baud, usual.timing.baud);
    members.put("parity", parityText(options.parity), parityText(usual.parity));
    members.put("stop-bits", options.timing.stopBits, usual.timing.stopBits);
    members.put("station", options.station, usual.station);
    members.put("timeout", session.exchange.replyTimeout, usual.session.exchange.replyTimeout);
    members.put("settle", session.exchange.settle, usualSettle(options));
    members.put("quiet", session.exchange.quiet, usual.session.exchange.quiet);
    members.put("retries", session.retries, usual.session.retries);
    members.put("reopen", options.patience / MILLISECONDS_PER_SECOND, 0);
    if (session.choosesLengths)
        members.put(LIMIT, session.maxWords, usual.session.maxWords);
    else
        members.put("max-words", session.maxWords, 0);
    members.put("max-bits", session.maxBits, usual.session.maxBits);
    return members.object;
}

} // namespace kxpanel
