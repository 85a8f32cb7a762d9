#include "kxhost/command_line.h"

#include "kxhost/console.h"
#include "kxhost/exit_codes.h"

namespace
{

QString helpText(const QCommandLineParser& parser, const CommandHelp& help)
{
    // The parser's own usage line names the program's path and no command.
    QString options = parser.helpText();
    options = options.mid(options.indexOf(QLatin1Char('\n')) + 1);
    QString text = QString::fromLatin1("Usage: kxhost %1\n%2\n%3\n"
                                       "X and Y are octal, all other types decimal. Modbus "
                                       "numbers are zero-based, as on\nthe wire.\n\nExamples:\n")
                       .arg(QLatin1String(help.usage), QLatin1String(help.summary), options);
    for (const QString& example : QString::fromLatin1(help.examples).split(QLatin1Char('\n')))
        text += QString::fromLatin1("  %1\n").arg(example);
    return text;
}

} // namespace

bool parseCommandLine(QCommandLineParser* parser, const QStringList& arguments,
                      const CommandHelp& help, int* exitCode)
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
    if (!isParsed)
        *exitCode = complain(parser->errorText(), EXIT_WRONG_USAGE);
    return isParsed;
}

bool takeNumber(const QCommandLineParser& parser, const char* option, int lowest, int highest,
                int* number, QString* error)
{
    const QString name = QString::fromLatin1(option);
    if (!parser.isSet(name))
        return true;
    bool isNumber = false;
    const int value = parser.value(name).toInt(&isNumber);
    if (!isNumber || value < lowest || value > highest) {
        *error =
            QString::fromLatin1("--%1 %2: must be a number from %3 to %4")
                .arg(name, parser.value(name), QString::number(lowest), QString::number(highest));
        return false;
    }
    *number = value;
    return true;
}
