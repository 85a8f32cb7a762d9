#include "kxpanel/tags/tag_text.h"

#include "kxpanel/tags/cell_markup.h"
#include "kxpanel/tags/cell_numbers.h"
#include "kxpanel/tags/cell_table.h"
#include "kxpanel/tags/tag_fields.h"
#include "kxpanel/tags/tag_names.h"
#include "kxpanel/tags/tag_rows.h"
#include "panel/files/csv_fields.h"
#include "panel/values/value_address.h"

namespace kxpanel
{

namespace
{

/// Each with a name unlike every other, in one line.
QList<kx::Tag> namedTags(QList<kx::Tag> tags)
{
    TagNames names({});
    for (kx::Tag& tag : tags)
        tag.name = names.take(inOneLine(tag.name).trimmed());
    for (kx::Tag& tag : tags) {
        if (!tag.name.isEmpty())
            continue;
        const QString address = kx::valueName(tag.range, tag.format, 0);
        tag.name = names.take(names.isTaken(address) ? nameWithStation(tag) : address);
    }
    return tags;
}

QStringList rowOf(const kx::Tag& tag)
{
    QStringList fields;
    for (const QString& field : tagFields(tag))
        fields << inOneLine(field);
    return fields;
}

QList<QStringList> rowsOf(const QList<kx::Tag>& tags)
{
    QList<QStringList> rows = {tagFieldNames()};
    for (const kx::Tag& tag : namedTags(tags))
        rows << rowOf(tag);
    return rows;
}

QByteArray fileRow(const QStringList& fields)
{
    QByteArray row;
    for (const QString& field : fields) {
        if (!row.isNull())
            row += ',';
        row += kx::csvField(field.toUtf8(), ',');
    }
    return row + '\n';
}

/// Whether the first row names columns, which then are separated by tabs.
bool hasHeader(const QStringList& cells)
{
    for (const QString& cell : cells) {
        if (cell.trimmed() == QLatin1String("address"))
            return true;
    }
    return false;
}

/// The same of a text file with commas or semicolons.
bool hasFileHeader(const QStringList& cells)
{
    return cells.size() == 1
           && (hasHeader(cells.first().split(QLatin1Char(',')))
               || hasHeader(cells.first().split(QLatin1Char(';'))));
}

bool isOfNumbers(const QString& column)
{
    static const QStringList names = {QStringLiteral("scale"), QStringLiteral("offset"),
                                      QStringLiteral("min"), QStringLiteral("max")};
    return names.contains(column.trimmed());
}

/// Rows below a header as a tags file with tabs; a row of a comment alone is none.
QString fileOfRows(const QList<QStringList>& rows, const QStringList& header, const QLocale& locale)
{
    QString text;
    for (const QStringList& cells : rows) {
        const bool isComment =
            cells.first().startsWith(QLatin1Char('#')) && isEmptyRow(cells.mid(1));
        QStringList fields;
        for (const QString& cell : isComment ? QStringList() : cells) {
            const QString field = inOneLine(cell);
            const bool isNumber = isOfNumbers(header.value(static_cast<int>(fields.size())));
            fields << (isNumber ? withDecimalPoint(field.trimmed(), locale) : field);
        }
        text += cellsText(fields);
    }
    return text;
}

bool parseFile(const QString& text, int station, QList<kx::Tag>* tags, QString* fault)
{
    QList<kx::Tag> taken;
    if (!kx::parseTags(text.toUtf8(), QStringLiteral("row"), &taken, fault)) {
        if (fault->startsWith(QLatin1String("row:")) && fault->mid(4, 1) != QLatin1String(" "))
            (*fault)[3] = QLatin1Char(' '); // it is no file's line
        return false;
    }
    for (kx::Tag& tag : taken) {
        if (tag.range.station < 0)
            tag.range.station = station;
        dropAddressName(&tag);
    }
    *tags = taken;
    return true;
}

} // namespace

bool parseTypedTag(const QString& typed, int station, kx::Tag* tag, QString* fault)
{
    kx::Tag parsed;
    *tag = kx::Tag();
    if (!kx::parseValueAddress(typed, &parsed.range, &parsed.format, fault))
        return false;
    if (parsed.range.station < 0)
        parsed.range.station = station;
    *tag = parsed;
    return true;
}

QString typedText(const kx::Tag& tag)
{
    return kx::valueAddressText(tag.range, tag.format);
}

QString tagsText(const QList<kx::Tag>& tags)
{
    QString text;
    for (const QStringList& row : rowsOf(tags))
        text += cellsText(row);
    return text;
}

QMimeData* tagsData(const QList<kx::Tag>& tags)
{
    QList<QList<Cell>> rows;
    for (const QStringList& row : rowsOf(tags)) {
        rows << QList<Cell>();
        for (const QString& field : row)
            rows.last() << Cell{field};
    }
    return cellsData(rows);
}

QByteArray tagsFileText(const QList<kx::Tag>& tags)
{
    QByteArray text;
    for (const QStringList& row : rowsOf(tags))
        text += fileRow(row);
    return text;
}

bool parseTagsText(const QString& text, int station, QList<kx::Tag>* tags, QString* fault,
                   const QLocale& locale)
{
    QList<QStringList> rows;
    if (!parseCells(text, &rows, fault))
        return false;
    QStringList first;
    for (int i = 0; i < rows.size() && isEmptyRow(first); ++i)
        first = rows.at(i);
    if (hasFileHeader(first))
        return parseFile(text, station, tags, fault);
    return hasHeader(first) ? parseFile(fileOfRows(rows, first, locale), station, tags, fault)
                            : tagsOfRows(rows, station, tags, fault);
}

} // namespace kxpanel
