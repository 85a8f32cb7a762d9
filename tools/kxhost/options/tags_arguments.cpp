#include "kxhost/options/tags_arguments.h"

#include <QtCore/QFileInfo>

namespace kx
{

namespace
{

const char* const TAGS_OPTION = "tags";

bool isFileName(const QString& argument)
{
    return argument.contains(QLatin1Char('.')) || argument.contains(QLatin1Char('/'))
           || QFileInfo(argument).isFile();
}

bool takeFile(const QString& path, QList<Tag>* tags, QString* error)
{
    if (path.isEmpty()) {
        *error = QStringLiteral("--tags: the name of the file is missing");
        return false;
    }
    QList<Tag> loaded;
    if (!loadTags(path, &loaded, error))
        return false;
    *tags << loaded;
    return true;
}

bool parseArgument(const QString& argument, QList<Tag>* tags, QString* error)
{
    Tag tag;
    if (!parseAddressRange(argument, &tag.range, error))
        return isFileName(argument) && takeFile(argument, tags, error);
    *tags << tag;
    return true;
}

} // namespace

void addTagsOption(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(TAGS_OPTION),
                       QLatin1String("Take the addresses of a tags file (CSV with the header "
                                     "name,station,address,count,comment)."),
                       QLatin1String("FILE")});
}

bool parseTagArguments(const QCommandLineParser& parser, int station, QList<Tag>* tags,
                       QString* error)
{
    for (const QString& path : parser.values(QLatin1String(TAGS_OPTION))) {
        if (!takeFile(path, tags, error))
            return false;
    }
    for (const QString& argument : parser.positionalArguments()) {
        if (!parseArgument(argument, tags, error))
            return false;
    }
    for (Tag& tag : *tags) {
        if (tag.range.station < 0)
            tag.range.station = station;
    }
    return true;
}

bool parseWatchedRanges(const QCommandLineParser& parser, int station, QList<AddressRange>* ranges,
                        QString* error)
{
    QList<Tag> tags;
    if (!parseTagArguments(parser, station, &tags, error))
        return false;
    *ranges << rangesOf(tags);
    return true;
}

} // namespace kx
