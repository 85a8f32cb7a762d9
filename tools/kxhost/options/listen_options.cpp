#include "kxhost/options/listen_options.h"

#include "kxhost/options/command_parser.h"

namespace kx
{

namespace
{

const int LONGEST_TIMEOUT = 60000;    // milliseconds
const int LONGEST_LISTENING = 604800; // seconds, a week

const char* const VALUE_OPTIONS[][3] = {
    {"t,timeout",
     "Milliseconds after a request in which a frame counts as its reply (default 1000): the "
     "time-out of the master on the line.",
     "MS"},
    {"seconds", "End after so many seconds.", "COUNT"},
    {"pcap", "Write all frames into this file, for Wireshark; it is replaced.", "FILE"},
};

bool parsePort(const QCommandLineParser& parser, ListenOptions* options, QString* error)
{
    options->port = parser.value(QStringLiteral("port"));
    if (options->port.isEmpty())
        *error = QStringLiteral("no line; name the port to listen at with --port");
    return error->isEmpty();
}

bool parseCapture(const QCommandLineParser& parser, ListenOptions* options, QString* error)
{
    options->captureFile = parser.value(QStringLiteral("pcap"));
    if (parser.isSet(QStringLiteral("pcap")) && options->captureFile.isEmpty())
        *error = QStringLiteral("--pcap: needs the name of a file");
    return error->isEmpty();
}

} // namespace

void addListenOptions(QCommandLineParser* parser)
{
    addPortOption(parser);
    addFormatOptions(parser);
    for (const auto& option : VALUE_OPTIONS)
        parser->addOption({QString::fromLatin1(option[0]).split(QLatin1Char(',')),
                           QString::fromLatin1(option[1]), QString::fromLatin1(option[2])});
    parser->addOption({QStringLiteral("frames"),
                       QStringLiteral("Show every request and reply, in hexadecimal.")});
    parser->addOption({QStringLiteral("json"), QStringLiteral("Write JSON, an object per line.")});
}

bool parseListenOptions(const QCommandLineParser& parser, ListenOptions* options, QString* error)
{
    options->frames = parser.isSet(QStringLiteral("frames"));
    options->json = parser.isSet(QStringLiteral("json"));
    const QStringList words = parser.positionalArguments();
    if (!words.isEmpty()) {
        *error = QStringLiteral("%1: unexpected; listening shows all that is on the line")
                     .arg(words.first());
        return false;
    }
    return parsePort(parser, options, error) && parseCapture(parser, options, error)
           && parseTiming(parser, &options->timing, &options->parity, error)
           && parseNumber(parser, "timeout", 1, LONGEST_TIMEOUT, &options->replyTimeout, error,
                          NumberUnit::Milliseconds)
           && parseNumber(parser, "seconds", 1, LONGEST_LISTENING, &options->seconds, error);
}

} // namespace kx
