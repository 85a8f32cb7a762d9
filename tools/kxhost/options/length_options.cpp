#include "kxhost/options/length_options.h"

#include "addresses/request_limits.h"
#include "kxhost/options/command_parser.h"
#include "panel/text/duration.h"
#include "system/translated_text.h"

namespace kx
{

SessionSettings settingsForReading()
{
    SessionSettings settings;
    settings.choosesLengths = true;
    settings.maxWords = MOST_REGISTERS_PER_READ;
    return settings;
}

bool parseLengthOptions(const QCommandLineParser& parser, SessionSettings* settings, QString* error)
{
    if (!parseNumber(parser, "max-bits", 1, MOST_COILS_PER_READ, &settings->maxBits, error))
        return false;
    const bool isAuto = parser.value(QStringLiteral("max-words")) == QLatin1String("auto");
    if (!parser.isSet(QStringLiteral("max-words")))
        return true;
    settings->choosesLengths = isAuto;
    settings->maxWords = MOST_REGISTERS_PER_READ;
    if (isAuto
        || parseNumber(parser, "max-words", 1, MOST_REGISTERS_PER_READ, &settings->maxWords, error))
        return true;
    *error = Text::tr("%1, or auto").arg(*error);
    return false;
}

void addIntervalOption(QCommandLineParser* parser)
{
    parser->addOption({QStringLiteral("interval"),
                       QStringLiteral("Time from one read of an address to the next, such as 500ms "
                                      "or 10s; without a unit, milliseconds. The column 'every' of "
                                      "a tags file goes before (default 0: in each cycle)."),
                       QStringLiteral("TIME")});
}

bool parseIntervalOption(const QCommandLineParser& parser, int* interval, QString* error)
{
    const QString value = parser.value(QStringLiteral("interval"));
    if (!parser.isSet(QStringLiteral("interval")) || parseInterval(value, interval))
        return true;
    *error = QStringLiteral("--interval %1: must be a time from 0 to 1440min, such as 500ms "
                            "or 10s")
                 .arg(value);
    return false;
}

} // namespace kx
