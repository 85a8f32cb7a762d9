#include "kxhost/options/port_options.h"

#include "addresses/digits.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const int LONGEST_DELAY = 1000; // milliseconds

const char* const PORT_OPTIONS[][3] = {
    {"low-latency",
     "Whether the port's driver is asked to report bytes at once, where it can: yes or no (default "
     "yes). Many a USB adapter holds each reply for up to 16 ms otherwise.",
     "CHOICE"},
    {"rs485",
     "Let the port switch an RS-485 transceiver by RTS: on, or any of rts-before:MS, rts-after:MS "
     "and rts-low, separated by commas. Not for adapters that switch by themselves.",
     "MODE"},
};

bool parseDelay(const QString& text, int* milliseconds)
{
    const int value = text.toInt();
    if (!hasOnlyDigits(text, 10) || value > LONGEST_DELAY)
        return false;
    *milliseconds = value;
    return true;
}

bool parsePart(const QString& part, PortModes* modes)
{
    const QString name = part.section(QLatin1Char(':'), 0, 0);
    const QString delay = part.section(QLatin1Char(':'), 1);
    if (name == QLatin1String("rts-before"))
        return parseDelay(delay, &modes->rtsBefore);
    if (name == QLatin1String("rts-after"))
        return parseDelay(delay, &modes->rtsAfter);
    modes->rtsLowToSend = modes->rtsLowToSend || part == QLatin1String("rts-low");
    return part == QLatin1String("rts-low") || part == QLatin1String("on");
}

bool parseLowLatency(const QCommandLineParser& parser, PortModes* modes, QString* error)
{
    const QString option = QStringLiteral("low-latency");
    if (!parser.isSet(option))
        return true;
    const QString choice = parser.value(option);
    modes->lowLatency = choice == QLatin1String("yes");
    if (modes->lowLatency || choice == QLatin1String("no"))
        return true;
    *error = Text::tr("--low-latency %1: must be yes or no").arg(choice);
    return false;
}

bool parseRs485(const QCommandLineParser& parser, PortModes* modes, QString* error)
{
    const QString option = QStringLiteral("rs485");
    modes->rs485 = parser.isSet(option);
    if (!modes->rs485)
        return true;
    if (!parser.isSet(QStringLiteral("port"))) {
        *error = Text::tr("--rs485 needs --port");
        return false;
    }
    const QString mode = parser.value(option);
    for (const QString& part : mode.split(QLatin1Char(','))) {
        if (!parsePart(part, modes)) {
            *error = Text::tr("--rs485 %1: must be on, or rts-before:MS, rts-after:MS (0 to "
                              "%2 milliseconds) and rts-low, separated by commas")
                         .arg(mode, QString::number(LONGEST_DELAY));
            return false;
        }
    }
    return true;
}

} // namespace

void addPortOptions(QCommandLineParser* parser)
{
    for (const auto& option : PORT_OPTIONS)
        parser->addOption({QString::fromLatin1(option[0]), QString::fromLatin1(option[1]),
                           QString::fromLatin1(option[2])});
}

bool parsePortOptions(const QCommandLineParser& parser, PortModes* modes, QString* error)
{
    return parseLowLatency(parser, modes, error) && parseRs485(parser, modes, error);
}

} // namespace kx
