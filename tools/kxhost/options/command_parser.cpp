#include "kxhost/options/command_parser.h"

#include "addresses/digits.h"
#include "addresses/station_text.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "system/character_format.h"
#include "system/repeated_option.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const char EXIT_CODES[] =
    "Exit codes: 0 fine, 1 a station failed or the line was lost, 2 wrong usage,\n"
    "3 the port or the library cannot be opened";

QString helpText(const QCommandLineParser& parser, const CommandHelp& help)
{
    // The parser's own usage line names the program's path and no command.
    QString options = parser.helpText();
    options = options.mid(options.indexOf(QLatin1Char('\n')) + 1);
    QString text = QStringLiteral("Usage: kxhost %1\n%2\n%3\n"
                                  "X and Y are octal, all other types decimal. Modbus "
                                  "numbers are zero-based, as on\nthe wire.\n\nExamples:\n")
                       .arg(QLatin1String(help.usage), QLatin1String(help.summary), options);
    for (const QString& example : QString::fromLatin1(help.examples).split(QLatin1Char('\n')))
        text += QStringLiteral("  %1\n").arg(example);
    const QString exitCodes =
        QLatin1String(help.exitCodes ? help.exitCodes : EXIT_CODES) + QStringLiteral(".\n");
    return text + QLatin1Char('\n') + exitCodes;
}

/// "unknown option 'speed'; kxhost watch --help shows the options"
QString parserFault(const QCommandLineParser& parser, const CommandHelp& help)
{
    QString fault = parser.errorText();
    fault.replace(0, 1, fault.at(0).toLower());
    if (fault.endsWith(QLatin1Char('.')))
        fault.chop(1);
    const QString command = QString::fromLatin1(help.usage).section(QLatin1Char(' '), 0, 0);
    return QStringLiteral("%1; kxhost %2 --help shows the options").arg(fault, command);
}

/// With places for the lowest and the highest.
QString wholeNumberText(NumberUnit unit)
{
    switch (unit) {
    case NumberUnit::Milliseconds:
        return Text::tr("must be a whole number of milliseconds from %1 to %2");
    case NumberUnit::Seconds:
        return Text::tr("must be a whole number of seconds from %1 to %2");
    case NumberUnit::None:
        break;
    }
    return Text::tr("must be a whole number from %1 to %2");
}

/// Of all commands; every other option takes one value.
QStringList repeatableOptions()
{
    return {QStringLiteral("fault"), QStringLiteral("only"), QStringLiteral("tags")};
}

} // namespace

bool parseCommand(QCommandLineParser* parser, const QStringList& arguments, const CommandHelp& help,
                  int* exitCode)
{
    const QCommandLineOption helpOption({QLatin1String("h"), QLatin1String("help")},
                                        QLatin1String("Show this help."));
    parser->addOption(helpOption);
    const bool isParsed = parser->parse(QStringList(QLatin1String("kxhost")) + arguments);
    if (parser->isSet(helpOption)) {
        print(helpText(*parser, help));
        *exitCode = EXIT_FINE;
        return false;
    }
    const QString fault =
        isParsed ? repeatedOption(*parser, repeatableOptions()) : parserFault(*parser, help);
    if (!fault.isEmpty())
        *exitCode = complain(fault, EXIT_WRONG_USAGE);
    return fault.isEmpty();
}

QString exitCodesText()
{
    return QLatin1String(EXIT_CODES)
           + QStringLiteral("; of compare: 1 values differ,\n4 not all values could be read.\n");
}

bool parseNumber(const QCommandLineParser& parser, const char* option, int lowest, int highest,
                 int* number, QString* error, NumberUnit unit)
{
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return true;
    const QString typed = parser.value(name);
    bool isNumber = false;
    const int value = typed.toInt(&isNumber);
    const bool isNegative = typed.startsWith(QLatin1Char('-'));
    if (!isNumber || !hasOnlyDigits(typed.mid(isNegative ? 1 : 0), 10) || value < lowest
        || value > highest) {
        const QString rule =
            wholeNumberText(unit).arg(QString::number(lowest), QString::number(highest));
        *error = QStringLiteral("--%1 %2: %3").arg(name, typed, rule);
        return false;
    }
    *number = value;
    return true;
}

bool parseStationOption(const QCommandLineParser& parser, int* station, QString* error)
{
    return parseNumber(parser, "station", LOWEST_STATION, HIGHEST_STATION, station, error);
}

void addPortOption(QCommandLineParser* parser)
{
    parser->addOption({{QStringLiteral("p"), QStringLiteral("port")},
                       QStringLiteral("Serial port or pseudo-terminal. A name without / is one in "
                                      "/dev or, when there is none, a file of the current folder."),
                       QStringLiteral("PORT")});
}

void addFormatOptions(QCommandLineParser* parser)
{
    parser->addOption({{QStringLiteral("b"), QStringLiteral("baud")},
                       QStringLiteral("Bits per second (default 9600)."),
                       QStringLiteral("BAUD")});
    parser->addOption({QStringLiteral("parity"),
                       QStringLiteral("Parity: none, even or odd (default none)."),
                       QStringLiteral("PARITY")});
    parser->addOption({QStringLiteral("data-bits"),
                       QStringLiteral("Data bits: 8, which Modbus RTU needs."),
                       QStringLiteral("BITS")});
    parser->addOption({QStringLiteral("stop-bits"),
                       QStringLiteral("Stop bits, 1 or 2 (default 1)."), QStringLiteral("BITS")});
}

bool parseTiming(const QCommandLineParser& parser, LineTiming* timing, char* parity, QString* error,
                 const OpenTiming& open)
{
    const QString parityOption = QStringLiteral("parity");
    const QString bitsOption = QStringLiteral("data-bits");
    const bool isBaudGood =
        open.baud || parseNumber(parser, "baud", 1, FASTEST_BAUD, &timing->baud, error);
    const bool hasParity = parser.isSet(parityOption) && !open.parity;
    if (!isBaudGood || (parser.isSet(bitsOption) && !parseDataBits(parser.value(bitsOption), error))
        || !parseNumber(parser, "stop-bits", 1, 2, &timing->stopBits, error)
        || (hasParity && !parseParity(parser.value(parityOption), parity, error)))
        return false;
    timing->parityBits = *parity == 'N' ? 0 : 1;
    return true;
}

} // namespace kx
