#include "panel/files/tags_file.h"

#include "panel/files/csv_table.h"
#include "panel/files/text_file.h"
#include "panel/text/duration.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

namespace kx
{

namespace
{

enum Column { NAME, STATION, ADDRESS, COUNT, EVERY, COMMENT };

const QList<CsvColumn>& columns()
{
    static const QList<CsvColumn> columns = {{"name", true},    {"station", false},
                                             {"address", true}, {"count", false},
                                             {"every", false},  {"comment", false}};
    return columns;
}

bool fail(QString* error, const QString& message)
{
    *error = message;
    return false;
}

bool parseRange(const QList<CsvField>& fields, AddressRange* range, QString* error)
{
    QString address = fields.at(ADDRESS).text;
    if (address.contains(QLatin1Char(':')) || address.contains(QLatin1Char('@')))
        return fail(error,
                    QStringLiteral("%1: count and station have columns of their own").arg(address));
    const QString count = fields.at(COUNT).text;
    if (!count.isEmpty())
        address += QLatin1Char(':') + count;
    const QString station = fields.at(STATION).text;
    if (!station.isEmpty())
        address += QLatin1Char('@') + station;
    return parseAddressRange(address, range, error);
}

bool takeInterval(const QString& text, int* interval, QString* error)
{
    if (text.isEmpty() || parseInterval(text, interval))
        return true;
    return fail(error, QStringLiteral("every %1: must be a time from 0 to 1440min, such as 500ms, "
                                      "10s or 5min")
                           .arg(text));
}

bool parseTag(const QList<CsvField>& fields, Tag* tag, QString* error)
{
    tag->name = fields.at(NAME).text;
    tag->comment = fields.at(COMMENT).text;
    if (tag->name.isEmpty())
        return fail(error, QStringLiteral("the tag has no name"));
    if (fields.at(ADDRESS).text.isEmpty())
        return fail(error, QStringLiteral("the tag has no address"));
    return parseRange(fields, &tag->range, error)
           && takeInterval(fields.at(EVERY).text, &tag->interval, error);
}

bool takeTags(const QList<CsvRow>& rows, QList<Tag>* tags, CsvFault* fault)
{
    QHash<QString, int> lineOf;
    for (const CsvRow& row : rows) {
        fault->line = row.line;
        Tag tag;
        if (!parseTag(row.fields, &tag, &fault->text))
            return false;
        if (lineOf.contains(tag.name))
            return fail(&fault->text, QStringLiteral("the name '%1' is taken by line %2")
                                          .arg(tag.name, QString::number(lineOf.value(tag.name))));
        lineOf.insert(tag.name, row.line);
        *tags << tag;
    }
    return true;
}

} // namespace

bool loadTags(const QString& path, QList<Tag>* tags, QString* error)
{
    QByteArray content;
    return readTextFile(path, &content, error) && parseTags(content, path, tags, error);
}

bool parseTags(const QByteArray& content, const QString& path, QList<Tag>* tags, QString* error)
{
    CsvTable table;
    CsvFault fault;
    QList<Tag> taken;
    if (CsvTable::parse(content, columns(), &table, &fault)
        && takeTags(table.rows(), &taken, &fault)) {
        *tags = taken;
        return true;
    }
    const QString place =
        fault.line > 0 ? path + QLatin1Char(':') + QString::number(fault.line) : path;
    return fail(error, QStringLiteral("%1: %2").arg(place, fault.text));
}

QList<AddressRange> rangesOf(const QList<Tag>& tags)
{
    QList<AddressRange> ranges;
    for (const Tag& tag : tags)
        ranges << tag.range;
    return ranges;
}

} // namespace kx
