#include "kxhost/commands/command_table.h"

#include "kxhost/commands/commands.h"
#include "kxhost/options/command_parser.h"

namespace kx
{

const std::vector<Command>& commands()
{
    static const std::vector<Command> table = {
        {"watch", "show values as they change", "kxhost watch D100:4 M0:8 X10 --port /dev/ttyUSB0",
         runWatch},
        {"read", "read values once", "kxhost read D100:10 --port /dev/ttyUSB0", runRead},
        {"write", "write values", "kxhost write D100=1234 M0=1,0,1,1 --port /dev/ttyUSB0",
         runWrite},
        {"record", "record values in a file",
         "kxhost record D100:4 --to line3.csv --every 1s --port /dev/ttyUSB0", runRecord},
        {"replay", "print a recording", "kxhost replay line3.csv", runReplay},
        {"recipe", "download or upload a file of values",
         "kxhost recipe download filling.csv --port /dev/ttyUSB0", runRecipe},
        {"tags", "say all that is wrong in tags files", "kxhost tags check line3.csv", runTags},
        {"dump", "keep values in a file",
         "kxhost dump D0:1000 M0:100 --to memory.kxd --port /dev/ttyUSB0", runDump},
        {"compare", "show where controllers differ from such a file",
         "kxhost compare memory.kxd --port /dev/ttyUSB0", runCompare},
        {"restore", "give controllers the values of such a file",
         "kxhost restore memory.kxd --port /dev/ttyUSB0", runRestore},
        {"run", "do the steps of a sequence, such as an acceptance test",
         "kxhost run filling.kxs --port /dev/ttyUSB0 --junit report.xml", runSequence},
        {"check", "say whether addresses are valid", "kxhost check X377 D8000", runCheck},
        {"registers", "show the register types", "kxhost registers", runRegisters},
        {"series", "generate the addresses of copies of a tag",
         "kxhost series D100 --count 8 --step 2", runSeries},
        {"plan", "show the requests and the time of a watch list",
         "kxhost plan D100:4 D110:2 M0:8 --baud 9600", runPlan},
        {"ports", "show the serial ports and who has them open", "kxhost ports", runPorts},
        {"scan", "find the stations on a line", "kxhost scan --stations 1-247 --port /dev/ttyUSB0",
         runScan},
        {"raw", "send a frame as it stands", "kxhost raw 01 03 00 00 00 01 --port /dev/ttyUSB0",
         runRaw},
        {"listen", "show what others say on a line, without sending",
         "kxhost listen --port /dev/ttyUSB1 --baud 19200", runListen},
    };
    return table;
}

const Command* findCommand(const QString& name)
{
    for (const Command& command : commands()) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

QString helpOfAllCommands()
{
    QString help = QStringLiteral("Usage: kxhost COMMAND [options] ...\n"
                                  "Talks to KX series controllers over Modbus RTU.\n\nCommands:\n");
    for (const Command& command : commands())
        help += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -10)
                    .arg(QLatin1String(command.summary));
    help += QStringLiteral("\nExamples:\n");
    for (const Command& command : commands())
        help += QStringLiteral("  %1\n").arg(QLatin1String(command.example));
    help += QStringLiteral("\nAn address is TYPENUMBER[:COUNT][@STATION][/FORMAT], such as D100:4, "
                           "X17,\n32CV200@2, D100:2/float or D100/s16*0.1+5; D100.5 is one bit of "
                           "a word.\nX and Y are octal (X10 follows X7), all other types "
                           "decimal.\n\n");
    help += exitCodesText();
    help += QStringLiteral("\nkxhost COMMAND --help shows the options of a command,\n"
                           "kxhost --version the versions.\n");
    return help;
}

} // namespace kx
