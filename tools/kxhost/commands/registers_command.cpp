#include "kxhost/commands/commands.h"

#include "kxhost/commands/connection.h"
#include "kxhost/options/command_parser.h"
#include "kxhost/options/offline_options.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "kxhost/views/registers_catalogue.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const CommandHelp REGISTERS_HELP = {
    "registers [options] [TYPE...]",
    "Shows the register types of the driver: addresses as typed, the mask of their\n"
    "digits (O octal, d decimal), and the Modbus coils or holding registers that they\n"
    "stand for. Needs no controller.",
    "kxhost registers\n"
    "kxhost registers X 32CV\n"
    "kxhost registers --json"};

bool selectRows(const QStringList& types, QList<CatalogueRow>* rows, QString* error)
{
    for (const QString& type : types) {
        if (findRegisterType(type))
            continue;
        *error = QStringLiteral("unknown register type '%1'; the types are %2")
                     .arg(type, registerTypeNames());
        return false;
    }
    QList<CatalogueRow> selected;
    for (const CatalogueRow& row : *rows) {
        if (types.isEmpty() || types.contains(row.type))
            selected << row;
    }
    *rows = selected;
    return true;
}

void showCatalogue(const QList<CatalogueRow>& rows, bool json)
{
    if (!json) {
        for (const QString& line : catalogueRows(rows))
            say(line);
        return;
    }
    for (const CatalogueRow& row : rows)
        printJson(catalogueJson(row));
}

} // namespace

int runRegisters(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOfflineOptions(&parser);
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, REGISTERS_HELP, &exitCode))
        return exitCode;
    DriverEntryPoints entryPoints;
    exitCode = openDriver(askedLibrary(parser), &entryPoints);
    if (exitCode != EXIT_FINE)
        return exitCode;
    QList<CatalogueRow> rows = askForCatalogue(entryPoints);
    QString error;
    if (!selectRows(parser.positionalArguments(), &rows, &error))
        return complain(error, EXIT_WRONG_USAGE);
    showCatalogue(rows, wantsJson(parser));
    return EXIT_FINE;
}

} // namespace kx
