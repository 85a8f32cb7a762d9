#include "kxpanel/shell/window_options.h"

#include "kxhost/options/length_options.h"
#include "kxpanel/shell/version_text.h"

namespace kxpanel
{

namespace
{

const char SUMMARY[] =
    "Shows the values of controllers, how they change, and what happens on the line, in a window.\n"
    "Without a line it begins disconnected.";

const char EXAMPLES[] = "\nExamples:\n"
                        "  kxpanel\n"
                        "  kxpanel --simulate\n"
                        "  kxpanel --port /dev/ttyUSB0 --baud 19200 line3.csv\n"
                        "  kxpanel --port /dev/ttyUSB0 --project filling.kxpanel\n"
                        "  kxpanel --tcp 192.168.0.5:502 --protocol tcp\n";

const char EXIT_CODES[] = "\nExit codes: 0 fine, 2 wrong usage, 3 no display.\n";

/// What a window needs not: a lost line is opened again until somebody closes it.
QStringList notTaken()
{
    return {QStringLiteral("frames"), QStringLiteral("json"), QStringLiteral("reopen")};
}

void declare(QCommandLineParser* parser)
{
    parser->addOption({QStringLiteral("project"),
                       QStringLiteral("A project, as the window saves it, or the tags file of "
                                      "kxhost. The same without --project."),
                       QStringLiteral("FILE")});
    kx::addConnectionOptions(parser, 1000, notTaken());
    parser->addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help and end.")});
    parser->addOption({{QStringLiteral("v"), QStringLiteral("version")},
                       QStringLiteral("Show the version and end.")});
}

QString helpText(const QCommandLineParser& parser)
{
    // The parser's own usage line names the program's path.
    QString options = parser.helpText();
    options = options.mid(options.indexOf(QLatin1Char('\n')) + 1);
    return QStringLiteral("Usage: kxpanel [options] [FILE]\n%1\n").arg(QString::fromLatin1(SUMMARY))
           + options + QString::fromLatin1(EXAMPLES) + QString::fromLatin1(EXIT_CODES);
}

bool takeFile(const QCommandLineParser& parser, WindowOptions* options, QString* error)
{
    const QStringList files =
        parser.values(QStringLiteral("project")) + parser.positionalArguments();
    if (files.size() > 1)
        *error = QStringLiteral("%1: only one file can be opened").arg(files.at(1));
    else if (!files.isEmpty() && files.first().isEmpty())
        *error = QStringLiteral("--project: name a file");
    else if (!files.isEmpty())
        options->file = files.first();
    return error->isEmpty();
}

/// In the parser's words, of those that kxhost alone has; empty: none.
QString unknownOption(const QCommandLineParser& parser)
{
    for (const QString& name : notTaken()) {
        if (parser.isSet(name))
            return QStringLiteral("Unknown option '%1'.").arg(name);
    }
    return QString();
}

/// Whether anything was said about the line.
bool namesLine(const QCommandLineParser& parser)
{
    for (const QString& name : parser.optionNames()) {
        if (name != QLatin1String("project"))
            return true;
    }
    return false;
}

} // namespace

CommandLineResult parseWindowOptions(const QStringList& arguments, WindowOptions* options)
{
    QCommandLineParser parser;
    declare(&parser);
    CommandLineResult result;
    const bool isParsed = parser.parse(QStringList{QStringLiteral("kxpanel")} + arguments);
    if (parser.isSet(QStringLiteral("help"))) {
        result.output = helpText(parser);
        return result;
    }
    if (parser.isSet(QStringLiteral("version"))) {
        result.output = versionRows().join(QLatin1Char('\n')) + QLatin1Char('\n');
        return result;
    }
    result.error = isParsed ? unknownOption(parser) : parser.errorText(); // a sentence
    if (!result.error.isEmpty()) {
        result.error.chop(result.error.endsWith(QLatin1Char('.')) ? 1 : 0);
        result.error += QStringLiteral("; kxpanel --help lists the options");
        return result;
    }
    options->connection.session = kx::settingsForReading();
    options->connects = namesLine(parser);
    result.showsWindow =
        takeFile(parser, options, &result.error)
        && (!options->connects
            || kx::parseConnectionOptions(parser, &options->connection, &result.error));
    return result;
}

} // namespace kxpanel
