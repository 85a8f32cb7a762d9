#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/offline_options.h"
#include "kxhost/options/tags_arguments.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/check_answer.h"

#include <limits>

namespace kx
{

namespace
{

const CommandHelp CHECK_HELP = {
    "check [options] ADDRESS...",
    "Asks the driver whether addresses are valid, and says in a line each what number\n"
    "and what Modbus coil or holding register they stand for, or what is wrong.\n"
    "An address is TYPENUMBER[:COUNT][@STATION][/FORMAT], COUNT being in values. Needs\n"
    "no controller.\n"
    "What is wrong goes to standard error (with --json to standard output), and makes\n"
    "the exit code 2.",
    "kxhost check X377 D8000 32CV200:4 D100@2\n"
    "kxhost check M2040:16 --json\n"
    "kxhost check X10 --access 1\n"
    "kxhost check D100 --as bit"};

void addCheckOptions(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String("as"),
                       QLatin1String("Kind of the tag: bit or word (default: as the register)."),
                       QLatin1String("KIND")});
    parser->addOption({QLatin1String("data-type"),
                       QLatin1String("Data-type code of a word tag; 32CV takes 1, 3, 5, 6 and 9 "
                                     "(default 1)."),
                       QLatin1String("CODE")});
    parser->addOption({QLatin1String("access"),
                       QLatin1String("Access code of the tag; X refuses 1 and 2 (default 0)."),
                       QLatin1String("CODE")});
    addOfflineOptions(parser);
}

bool parseKind(const QCommandLineParser& parser, TagKind* kind, QString* error)
{
    if (!parser.isSet(QLatin1String("as")))
        return true;
    const QString name = parser.value(QLatin1String("as"));
    if (name != QLatin1String("bit") && name != QLatin1String("word")) {
        *error = QStringLiteral("--as %1: must be bit or word").arg(name);
        return false;
    }
    *kind = name == QLatin1String("bit") ? TagKind::Bit : TagKind::Word;
    return true;
}

bool parseTag(const QCommandLineParser& parser, CheckedTag* tag, QString* error)
{
    const int highest = std::numeric_limits<int>::max();
    tag->typed = parser.isSet(QLatin1String("data-type")) || parser.isSet(QLatin1String("access"));
    return parseKind(parser, &tag->kind, error)
           && parseNumber(parser, "data-type", 0, highest, &tag->dataType, error)
           && parseNumber(parser, "access", 0, highest, &tag->access, error);
}

int check(const QStringList& addresses, const DriverEntryPoints& entryPoints, const CheckedTag& tag,
          bool json)
{
    int exitCode = EXIT_FINE;
    for (const QString& address : addresses) {
        CheckAnswer answer = checkAddress(entryPoints, address, tag);
        if (!answer.isValid() && namesTagsFile(address))
            answer.fault = QStringLiteral("not an address; what a tags file holds is checked by "
                                          "kxhost tags check %1")
                               .arg(address);
        if (json)
            printJson(answerJson(answer));
        else if (answer.isValid())
            say(answerRow(answer));
        else
            complain(answerRow(answer), EXIT_WRONG_USAGE);
        if (!answer.isValid())
            exitCode = EXIT_WRONG_USAGE;
    }
    return exitCode;
}

} // namespace

int runCheck(const QStringList& arguments)
{
    QCommandLineParser parser;
    addCheckOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, CHECK_HELP, &exitCode))
        return exitCode;
    CheckedTag tag;
    QString error;
    if (!parseTag(parser, &tag, &error))
        return complain(error, EXIT_WRONG_USAGE);
    if (parser.positionalArguments().isEmpty())
        return complain(QLatin1String("nothing to check; name addresses such as X377"),
                        EXIT_WRONG_USAGE);
    DriverEntryPoints entryPoints;
    exitCode = openDriver(askedLibrary(parser), &entryPoints);
    if (exitCode != EXIT_FINE)
        return exitCode;
    return check(parser.positionalArguments(), entryPoints, tag, wantsJson(parser));
}

} // namespace kx
