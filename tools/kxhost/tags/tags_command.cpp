#include "kxhost/commands/commands.h"

#include "kxhost/options/command_parser.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "panel/files/tags_file.h"
#include "panel/files/text_file.h"
#include "panel/text/counted.h"

#include <QtCore/QJsonArray>

namespace kx
{

namespace
{

const CommandHelp TAGS_HELP = {
    "tags check [options] FILE...",
    "Says everything that is wrong in tags files, a line for each fault with its file,\n"
    "line and column, or how many tags a good one has. Needs no controller. Exit code 2\n"
    "when something is wrong.",
    "kxhost tags check line3.csv\n"
    "kxhost tags check *.csv --json"};

struct CheckedFile {
    QString path;
    QStringList faults;
    QList<Tag> tags;
};

CheckedFile checkFile(const QString& path)
{
    CheckedFile file;
    file.path = path;
    QByteArray content;
    QString error;
    if (readTextFile(path, &content, &error))
        file.faults = tagFaults(content, path, &file.tags);
    else
        file.faults << error;
    return file;
}

void showJson(const CheckedFile& file)
{
    QJsonObject json;
    json[QLatin1String("file")] = file.path;
    json[QLatin1String("tags")] = file.faults.isEmpty() ? static_cast<int>(file.tags.size()) : 0;
    json[QLatin1String("faults")] = QJsonArray::fromStringList(file.faults);
    printJson(json);
}

void showText(const CheckedFile& file)
{
    for (const QString& fault : file.faults)
        complain(fault, EXIT_WRONG_USAGE);
    if (file.faults.isEmpty())
        say(QStringLiteral("%1: good, %2")
                .arg(file.path, counted(static_cast<int>(file.tags.size()), "tag", "tags")));
}

} // namespace

int runTags(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({QLatin1String("json"), QLatin1String("Write JSON, an object per file.")});
    int exitCode = EXIT_FINE;
    if (!parseCommand(&parser, arguments, TAGS_HELP, &exitCode))
        return exitCode;
    const QStringList words = parser.positionalArguments();
    if (words.value(0) != QLatin1String("check") || words.size() < 2)
        return complain(QStringLiteral("tags: write tags check FILE, such as tags check line3.csv"),
                        EXIT_WRONG_USAGE);
    for (const QString& path : words.mid(1)) {
        const CheckedFile file = checkFile(path);
        if (!file.faults.isEmpty())
            exitCode = EXIT_WRONG_USAGE;
        if (parser.isSet(QLatin1String("json")))
            showJson(file);
        else
            showText(file);
    }
    return exitCode;
}

} // namespace kx
