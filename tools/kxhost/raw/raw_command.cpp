#include "kxhost/commands/commands.h"

#include "exchange/lines/frame_crc.h"
#include "exchange/lines/mbap_frames.h"
#include "kxhost/commands/connection.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/raw/raw_bytes.h"
#include "kxhost/raw/raw_exchange.h"
#include "kxhost/raw/raw_text.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/terminal/interrupt.h"
#include "panel/text/counted.h"

#include <QtCore/QCoreApplication>

namespace kx
{

namespace
{

const CommandHelp RAW_HELP = {
    "raw [options] BYTES...",
    "Sends one frame as it stands and shows what comes back, for finding faults.\n"
    "Bytes are hexadecimal, with or without blanks, commas and 0x; the CRC is appended.\n"
    "Nothing is checked: what is a write is carried out by the station.\n"
    "Exit code 0 when the reply is good, 1 when it is an exception, damaged or of\n"
    "another request, or when none came. Nobody answers a broadcast (station 00).",
    "kxhost raw 01 03 00 00 00 01 --port /dev/ttyUSB0\n"
    "kxhost raw 010600640005 --port /dev/ttyUSB0 --timeout 200 --json\n"
    "kxhost raw 01 03 00 00 00 01 84 0B --no-crc --port /dev/ttyUSB0\n"
    "kxhost raw 0x01,0x11 --tcp 192.168.0.5 --count 10"};

const QStringList NOT_FOR_RAW = {QStringLiteral("station"),   QStringLiteral("settle"),
                                 QStringLiteral("retries"),   QStringLiteral("reopen"),
                                 QStringLiteral("max-words"), QStringLiteral("library"),
                                 QStringLiteral("frames")};

const int LONGEST_FRAME = 256;        // bytes, CRC and all
const int BROADCAST_TURNAROUND = 100; // milliseconds that stations need to act on a broadcast
const int MOST_REPEATS = 1000000;

struct RawOptions {
    ConnectionOptions connection;
    QByteArray request; ///< as it is sent
    int count = 1;
};

bool isTcp(const RawOptions& options)
{
    return options.connection.protocol == GatewayProtocol::Tcp;
}

bool hasNoAnswer(const RawOptions& options)
{
    return isBroadcast(options.request, isTcp(options));
}

bool parseRequest(const QCommandLineParser& parser, RawOptions* options, QString* error)
{
    const bool isBare = parser.isSet(QLatin1String("no-crc"));
    if (!parseRawBytes(parser.positionalArguments(), &options->request, error))
        return false;
    if (isBare && isTcp(*options))
        *error = QStringLiteral("--no-crc: frames of Modbus TCP have no CRC");
    else if (!isBare)
        options->request = withCrc(options->request);
    if (!isBare && options->request.size() < SHORTEST_RTU_FRAME)
        *error = QStringLiteral("a frame begins with station and function; --no-crc sends less");
    else if (options->request.size() > LONGEST_FRAME)
        *error = QStringLiteral("a frame has at most %1 bytes with its CRC, and this one %2")
                     .arg(LONGEST_FRAME)
                     .arg(options->request.size());
    return error->isEmpty();
}

bool parseRawOptions(const QCommandLineParser& parser, RawOptions* options, QString* error)
{
    for (const QString& option : NOT_FOR_RAW) {
        if (parser.isSet(option)) {
            *error = QStringLiteral("--%1: a raw frame has no use for it").arg(option);
            return false;
        }
    }
    if (!parseConnectionOptions(parser, &options->connection, error)
        || !parseNumber(parser, "count", 1, MOST_REPEATS, &options->count, error)
        || !parseRequest(parser, options, error))
        return false;
    const int station = static_cast<unsigned char>(options->request.at(0));
    if (station >= 1 && station <= 247)
        options->connection.simulatedStations = {station};
    return true;
}

/// Lets one exchange go on to its end; false when it was interrupted.
bool runToItsEnd(RawExchange* exchange)
{
    bool isInterrupted = false;
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, exchange, [&] {
        isInterrupted = true;
        exchange->stop();
    });
    QObject::connect(exchange, &RawExchange::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    exchange->start();
    QCoreApplication::exec();
    return !isInterrupted;
}

/// Null without a gateway.
HostSession::Advice adviceAbout(const RawOptions& options, const Line* line)
{
    const bool isGateway = !options.connection.gateway.host.isEmpty();
    return HostSession::Advice(
        isGateway ? new GatewayAdvice(line->name(), options.connection.protocol) : nullptr);
}

void note(const RawExchange& exchange, GatewayAdvice* advice)
{
    ExchangeRecord record;
    record.reply = exchange.received();
    if (!exchange.error().isEmpty())
        advice->onLineLost();
    else if (exchange.wasSent())
        advice->onExchange(record);
}

/// Shows what came; whether it is as it should be.
bool showExchange(const RawOptions& options, const RawExchange& exchange)
{
    const RawExchanged exchanged = {options.request, exchange.received(), exchange.milliseconds(),
                                    isTcp(options)};
    if (options.connection.json) {
        printJson(rawJson(exchanged));
    } else {
        for (const QString& row : rawRows(exchanged))
            say(row);
    }
    const RawResult result = rawReplyOf(exchanged.request, exchanged.received).result;
    return result == (hasNoAnswer(options) ? RawResult::None : RawResult::Good);
}

int exchangeAll(const RawOptions& options, Line* line)
{
    const int timeout = options.connection.session.exchange.replyTimeout;
    const RawExchange::Waits waits = {hasNoAnswer(options) ? BROADCAST_TURNAROUND : timeout,
                                      options.connection.session.exchange.quiet};
    const HostSession::Advice advice = adviceAbout(options, line);
    int good = 0;
    int sent = 0;
    bool goesOn = true;
    while (goesOn && sent < options.count) {
        RawExchange exchange(line, options.request, waits);
        goesOn = runToItsEnd(&exchange);
        if (advice && !hasNoAnswer(options))
            note(exchange, advice.get());
        if (!exchange.error().isEmpty())
            return complain(exchange.error(), EXIT_DEVICE_FAILED);
        if (!exchange.wasSent())
            return goesOn
                       ? complain(QStringLiteral("%1: the line is never silent; nothing was sent")
                                      .arg(line->name()),
                                  EXIT_DEVICE_FAILED)
                       : EXIT_DEVICE_FAILED;
        ++sent;
        good += showExchange(options, exchange) ? 1 : 0;
    }
    if (options.count > 1 && !options.connection.json)
        say(QStringLiteral("%1 of %2 good")
                .arg(QString::number(good), counted(sent, "exchange", "exchanges")));
    return good == options.count ? EXIT_FINE : EXIT_DEVICE_FAILED;
}

} // namespace

int runRaw(const QStringList& arguments)
{
    QCommandLineParser parser;
    addConnectionOptions(&parser, 1000, NOT_FOR_RAW);
    parser.addOption(
        {QLatin1String("no-crc"), QLatin1String("Send the bytes as they are, without a CRC.")});
    parser.addOption({{QLatin1String("n"), QLatin1String("count")},
                      QLatin1String("Send it so many times (default 1)."),
                      QLatin1String("COUNT")});
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, RAW_HELP, &exitCode))
        return exitCode;
    RawOptions options;
    QString error;
    if (!parseRawOptions(parser, &options, &error))
        return complain(error, EXIT_WRONG_USAGE);
    HostLine host;
    const int result = openLine(options.connection, &host);
    return result == EXIT_FINE ? exchangeAll(options, host.connection->line()) : result;
}

} // namespace kx
