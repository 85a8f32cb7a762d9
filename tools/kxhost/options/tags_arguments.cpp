#include "kxhost/options/tags_arguments.h"

#include "panel/files/whole_range.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>

#include <utility>

namespace kx
{

namespace
{

const char* const TAGS_OPTION = "tags";
const char* const ONLY_OPTION = "only";
const char* const ORDER_OPTION = "word-order";

bool refuse(QString* error, const QString& text)
{
    *error = text;
    return false;
}

bool looksLikeFile(const QString& argument)
{
    return argument.contains(QLatin1Char('.')) || argument.contains(QLatin1Char('/'));
}

/// D100/flot and D100.77 are addresses with a fault rather than files; D100.csv is a file.
bool beginsAsAddress(const QString& argument)
{
    static const QRegularExpression place(QStringLiteral("\\A([^./]+)(?:/|\\.[0-9]|\\z)"));
    AddressRange range;
    QString fault;
    return parseAddress(place.match(argument).captured(1), &range, &fault);
}

bool loadFile(const QString& path, QList<Tag>* tags, QString* error)
{
    if (path.isEmpty())
        return refuse(error, QStringLiteral("--tags: the name of the file is missing"));
    return loadTags(path, tags, error);
}

QRegularExpression patternOf(const QString& wildcards)
{
    QString pattern = QRegularExpression::escape(wildcards);
    pattern.replace(QLatin1String("\\*"), QLatin1String(".*"));
    pattern.replace(QLatin1String("\\?"), QLatin1String("."));
    return QRegularExpression(QLatin1String("\\A(?:") + pattern + QLatin1String(")\\z"));
}

/// Which names are wanted, and which of the patterns had any.
class OnlyNames
{
public:
    explicit OnlyNames(const QStringList& wildcards) : m_unused(wildcards)
    {
        for (const QString& text : wildcards)
            m_patterns.insert(text, patternOf(text));
    }

    bool takes(const QString& name)
    {
        bool isTaken = m_patterns.isEmpty();
        for (auto pattern = m_patterns.begin(); pattern != m_patterns.end(); ++pattern) {
            if (!pattern.value().match(name).hasMatch())
                continue;
            m_unused.removeAll(pattern.key());
            isTaken = true;
        }
        return isTaken;
    }

    const QStringList& unused() const { return m_unused; }

private:
    QMap<QString, QRegularExpression> m_patterns;
    QStringList m_unused;
};

bool takeTagsFile(const QString& path, OnlyNames* only, QList<Tag>* tags, QString* error)
{
    QList<Tag> loaded;
    if (!loadFile(path, &loaded, error))
        return false;
    for (const Tag& tag : loaded) {
        if (only->takes(tag.name))
            *tags << tag;
    }
    return true;
}

bool parseArgument(const QString& argument, OnlyNames* only, QList<Tag>* tags, QString* error)
{
    Tag tag;
    QString fault;
    if (parseValueAddress(argument, &tag.range, &tag.format, &fault)) {
        *tags << tag;
        return true;
    }
    return namesTagsFile(argument) ? takeTagsFile(argument, only, tags, error)
                                   : refuse(error, faultyText(argument, fault));
}

} // namespace

void addWordOrderOption(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(ORDER_OPTION),
                       QLatin1String("Order of the words of values that name none: low (first, the "
                                     "default), high or swapped, or two of them: high,swapped."),
                       QLatin1String("ORDER")});
}

void addTagsOption(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(TAGS_OPTION),
                       QLatin1String("Take the addresses of a tags file (CSV with the columns name "
                                     "and address, and others: man kxhost)."),
                       QLatin1String("FILE")});
    parser->addOption({QLatin1String(ONLY_OPTION),
                       QLatin1String("Of tags files only the names that fit, such as 'pump*'; may "
                                     "be given several times."),
                       QLatin1String("NAME")});
    addWordOrderOption(parser);
}

bool parseWordOrder(const QCommandLineParser& parser, ValueFormat* order, QString* error)
{
    if (!parser.isSet(QLatin1String(ORDER_OPTION)))
        return true;
    QString text = parser.value(QLatin1String(ORDER_OPTION));
    QString fault;
    return parseOrder(text.replace(QLatin1Char(','), QLatin1Char(' ')), order, &fault)
           || refuse(error,
                     QStringLiteral("--%1 %2: %3").arg(QLatin1String(ORDER_OPTION), text, fault));
}

void addNamesOption(QCommandLineParser* parser)
{
    parser->addOption({QLatin1String(TAGS_OPTION),
                       QLatin1String("Take names, formats and scales of a tags file."),
                       QLatin1String("FILE")});
    addWordOrderOption(parser);
}

bool parseNames(const QCommandLineParser& parser, int station, QList<Tag>* tags, QString* error)
{
    OnlyNames all({});
    for (const QString& path : parser.values(QLatin1String(TAGS_OPTION))) {
        if (!takeTagsFile(path, &all, tags, error))
            return false;
    }
    for (Tag& tag : *tags)
        tag.range.station = tag.range.station < 0 ? station : tag.range.station;
    return true;
}

bool parseTagArguments(const QCommandLineParser& parser, int station, QList<Tag>* tags,
                       QString* error)
{
    OnlyNames only(parser.values(QLatin1String(ONLY_OPTION)));
    ValueFormat order;
    if (!parseWordOrder(parser, &order, error))
        return false;
    for (const QString& path : parser.values(QLatin1String(TAGS_OPTION))) {
        if (!takeTagsFile(path, &only, tags, error))
            return false;
    }
    for (const QString& argument : parser.positionalArguments()) {
        if (!parseArgument(argument, &only, tags, error))
            return false;
    }
    if (!only.unused().isEmpty())
        return refuse(error, QStringLiteral("--only %1: no tag of the files has such a name")
                                 .arg(only.unused().first()));
    for (Tag& tag : *tags) {
        if (tag.range.station < 0)
            tag.range.station = station;
        takeOrder(order, &tag.format);
    }
    return true;
}

bool namesTagsFile(const QString& argument)
{
    return QFileInfo(argument).isFile() || (looksLikeFile(argument) && !beginsAsAddress(argument));
}

bool parseWatchedRanges(const QCommandLineParser& parser, int station, QList<AddressRange>* ranges,
                        QString* error)
{
    QList<Tag> tags;
    if (!parseTagArguments(parser, station, &tags, error))
        return false;
    for (const Tag& tag : std::as_const(tags))
        *ranges << wholeRange(tag);
    return true;
}

} // namespace kx
