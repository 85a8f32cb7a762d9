#include "kxpanel/tags/tag_text.h"

#include "kxpanel/tags/cell_markup.h"
#include "kxpanel/tags/cell_numbers.h"
#include "kxpanel/tags/cell_table.h"
#include "kxpanel/tags/tag_fields.h"
#include "kxpanel/tags/tag_names.h"
#include "kxpanel/tags/tag_rows.h"
#include "panel/files/csv_fields.h"
#include "panel/values/value_address.h"

#include <QtCore/QMimeData>

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

bool isComment(const QStringList& cells)
{
    return cells.first().startsWith(QLatin1Char('#')) && isEmptyRow(cells.mid(1));
}

/// Reads cells below a header as a tags file's fields.
class FieldReader
{
public:
    FieldReader(const QStringList& header, const QLocale& locale, CellNotes notes)
        : m_header(header), m_locale(locale), m_notes(std::move(notes))
    {
    }

    /// @param row from 0
    /// @param reason why not all can be read; else unchanged
    QStringList fieldsOf(int row, const QStringList& cells, QString* reason)
    {
        QStringList fields;
        for (const QString& cell : cells) {
            const int column = static_cast<int>(fields.size());
            const QString field = inOneLine(cell);
            fields << (isOfNumbers(m_header.value(column)) ? numberOf(row, cells, column, reason)
                                                           : field);
        }
        return fields;
    }

private:
    QString numberOf(int row, const QStringList& cells, int column, QString* reason)
    {
        const QString field = inOneLine(cells.at(column)).trimmed();
        const QString fault = thousandsFault(field, m_locale);
        if (fault.isEmpty())
            return withDecimalPoint(field, m_locale);
        const std::optional<QString> number = m_notes.numberIn(row, cells, column);
        if (!number && reason->isEmpty())
            *reason = fault;
        return number.value_or(field);
    }

    QStringList m_header;
    QLocale m_locale;
    CellNotes m_notes;
};

/// Rows below a header as a tags file with tabs; a row of a comment alone is none.
bool fileOfRows(const QList<QStringList>& rows, FieldReader reader, QString* text, QString* fault)
{
    for (int i = 0; i < rows.size(); ++i) {
        QString reason;
        const QStringList cells = isComment(rows.at(i)) ? QStringList() : rows.at(i);
        *text += cellsText(reader.fieldsOf(i, cells, &reason));
        if (!reason.isEmpty()) {
            *fault = rowFault(i + 1, reason);
            return false;
        }
    }
    return true;
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

QMimeData* tagsData(const QList<kx::Tag>& tags)
{
    QList<QList<Cell>> rows;
    for (const QStringList& row : rowsOf(tags)) {
        rows << QList<Cell>();
        for (const QString& field : row)
            rows.last() << Cell{field};
    }
    QMimeData* const data = cellsData(rows);
    data->setData(QString::fromLatin1(TAGS_MIME_TYPE), "1"); // that it is there says all
    return data;
}

QByteArray tagsFileText(const QList<kx::Tag>& tags)
{
    QByteArray text;
    for (const QStringList& row : rowsOf(tags))
        text += fileRow(row);
    return text;
}

bool parseTagsText(const QString& text, int station, QList<kx::Tag>* tags, QString* fault,
                   const QLocale& locale, CellNotes notes)
{
    QList<QStringList> rows;
    if (!parseCells(text, &rows, fault))
        return false;
    QStringList first;
    for (int i = 0; i < rows.size() && isEmptyRow(first); ++i)
        first = rows.at(i);
    if (hasFileHeader(first))
        return parseFile(text, station, tags, fault);
    if (!hasHeader(first))
        return tagsOfRows(rows, station, tags, fault);
    QString file;
    return fileOfRows(rows, FieldReader(first, locale, std::move(notes)), &file, fault)
           && parseFile(file, station, tags, fault);
}

} // namespace kxpanel
