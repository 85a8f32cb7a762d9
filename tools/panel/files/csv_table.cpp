#include "panel/files/csv_table.h"

#include "system/translated_text.h"

#include <algorithm>

namespace kx
{

namespace
{

struct Separator {
    char character;
    const char* name;
};

const Separator SEPARATORS[] = {{',', QT_TRANSLATE_NOOP("kx", "commas")},
                                {';', QT_TRANSLATE_NOOP("kx", "semicolons")},
                                {'\t', QT_TRANSLATE_NOOP("kx", "tabs")}};

QString separatorName(char character)
{
    for (const Separator& separator : SEPARATORS) {
        if (separator.character == character)
            return Text::tr(separator.name);
    }
    return QString();
}

bool isSkipped(const QByteArray& line)
{
    const QByteArray content = line.trimmed();
    return content.isEmpty() || content.startsWith('#');
}

QStringList textsOf(const QList<CsvField>& fields)
{
    QStringList texts;
    for (const CsvField& field : fields)
        texts << field.text;
    return texts;
}

bool refuseTable(const QString& fault, QString* error)
{
    *error = fault;
    return false;
}

} // namespace

bool CsvTable::parse(const QByteArray& bytes, const QList<CsvColumn>& columns, CsvTable* table,
                     CsvFault* fault)
{
    QList<CsvFault> faults;
    const bool isTable = parse(bytes, columns, table, &faults);
    *fault = faults.value(0);
    return isTable;
}

bool CsvTable::parse(const QByteArray& bytes, const QList<CsvColumn>& columns, CsvTable* table,
                     QList<CsvFault>* faults)
{
    *table = CsvTable();
    faults->clear();
    table->m_columns = columns;
    QByteArray text;
    CsvFault fault;
    if (decodeText(bytes, &text, &table->m_encoding, &fault.text))
        table->parseLines(text.split('\n'), faults);
    else
        *faults << fault;
    if (!table->m_rows.isEmpty() || !faults->isEmpty())
        return faults->isEmpty();
    fault.text = table->m_order.isEmpty()
                     ? Text::tr("no header line; it is %1").arg(table->columnNames())
                     : Text::tr("no rows behind the header");
    *faults << fault;
    return false;
}

/// Without a header no row can be told.
void CsvTable::parseLines(const QList<QByteArray>& lines, QList<CsvFault>* faults)
{
    m_lines = lines;
    for (int i = 0; i < m_lines.size(); ++i) {
        if (isSkipped(m_lines.at(i)))
            continue;
        for (const QString& text : lineFaults(i))
            *faults << CsvFault{i + 1, text};
        if (m_order.isEmpty())
            return;
    }
}

QStringList CsvTable::lineFaults(int index)
{
    const QByteArray& line = m_lines.at(index);
    QString fault;
    if (!checkUtf8(line, &fault))
        return {fault};
    if (m_order.isEmpty())
        return takeHeader(line);
    return parseRow(index, &fault) ? QStringList() : QStringList{fault};
}

// The separator is the one that finds most columns.
QStringList CsvTable::takeHeader(const QByteArray& line)
{
    QStringList names;
    int mostKnown = 0;
    for (const Separator& separator : SEPARATORS) {
        QList<CsvField> fields;
        QString fault;
        if (!splitCsvFields(line, separator.character, &fields, &fault))
            continue;
        const QStringList texts = textsOf(fields);
        const auto known = std::count_if(texts.begin(), texts.end(), [this](const QString& name) {
            return columnOf(name) >= 0;
        });
        if (known <= mostKnown)
            continue;
        mostKnown = static_cast<int>(known);
        names = texts;
        m_separator = separator.character;
    }
    if (mostKnown == 0)
        return {Text::tr("the first line must be the header %1, separated by commas, "
                         "semicolons or tabs")
                    .arg(columnNames())};
    return takeColumns(names);
}

QStringList CsvTable::takeColumns(const QStringList& names)
{
    QStringList faults;
    QList<int> order;
    for (const QString& name : names) {
        const int column = columnOf(name);
        if (column < 0)
            faults << Text::tr("unknown column '%1', separated by %2; the columns are %3")
                          .arg(name, separatorName(m_separator), columnNames());
        else if (order.count(column) == 1) // named once, however often it is there
            faults << Text::tr("the header has two columns '%1'").arg(name);
        order << column;
    }
    for (int column = 0; column < m_columns.size(); ++column) {
        if (m_columns.at(column).isNeeded && !order.contains(column))
            faults << Text::tr("the header has no column '%1'; the columns are %2")
                          .arg(QLatin1String(m_columns.at(column).name), columnNames());
    }
    if (faults.isEmpty())
        m_order = order;
    return faults;
}

bool CsvTable::parseRow(int index, QString* error)
{
    QList<CsvField> fields;
    if (!splitCsvFields(m_lines.at(index), m_separator, &fields, error))
        return false;
    const QStringList texts = textsOf(fields);
    if (std::all_of(texts.begin(), texts.end(), [](const QString& text) { return text.isEmpty(); }))
        return true;
    const int count = static_cast<int>(fields.size());
    const int most = static_cast<int>(m_order.size());
    if (count < fewestFields() || count > most) {
        const QString range = fewestFields() == most
                                  ? QString::number(most)
                                  : Text::tr("%1 to %2").arg(fewestFields()).arg(most);
        return refuseTable(
            Text::tr("%1 separated by %2 instead of %3")
                .arg(countedText(count, "%1 field", QT_TRANSLATE_N_NOOP("kx", "%1 fields")),
                     separatorName(m_separator), range),
            error);
    }
    CsvRow row;
    row.line = index + 1;
    for (int column = 0; column < m_columns.size(); ++column)
        row.fields << CsvField();
    for (int i = 0; i < count; ++i)
        row.fields[m_order.at(i)] = fields.at(i);
    m_rows << row;
    return true;
}

int CsvTable::columnOf(const QString& name) const
{
    for (int column = 0; column < m_columns.size(); ++column) {
        if (name == QLatin1String(m_columns.at(column).name))
            return column;
    }
    return -1;
}

int CsvTable::fewestFields() const
{
    int fewest = static_cast<int>(m_order.size());
    while (fewest > 0 && !m_columns.at(m_order.at(fewest - 1)).isNeeded)
        --fewest;
    return fewest;
}

QString CsvTable::columnNames() const
{
    QStringList names;
    for (const CsvColumn& column : m_columns)
        names << QLatin1String(column.name);
    return names.join(QLatin1Char(','));
}

QByteArray CsvTable::withTexts(int column, const QMap<int, QByteArray>& texts) const
{
    QList<QByteArray> lines = m_lines;
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const CsvRow& row = m_rows.at(text.key());
        const CsvField& field = row.fields.at(column);
        lines[row.line - 1].replace(field.begin, field.length, csvField(text.value(), m_separator));
    }
    return encodeText(lines.join('\n'), m_encoding);
}

} // namespace kx
