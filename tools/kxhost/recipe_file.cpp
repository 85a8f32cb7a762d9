#include "kxhost/recipe_file.h"

#include "kxhost/recipe_csv.h"

namespace
{

enum Column { NAME, STATION, REGISTER, ADDRESS, TYPE, VALUE, COLUMN_COUNT };

const char HEADER[] = "name,station,register,address,type,value";
const char UTF8_BYTE_ORDER_MARK[] = "\xEF\xBB\xBF";

QString at(int line, const QString& message)
{
    return QStringLiteral("line %1: %2").arg(line).arg(message);
}

bool isSkipped(const QByteArray& line)
{
    const QByteArray content = line.trimmed();
    return content.isEmpty() || content.startsWith('#');
}

bool isNumber(const QString& text)
{
    for (const QChar digit : text) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9'))
            return false;
    }
    return !text.isEmpty();
}

// An address as in an address list, so that the same rules and messages hold.
QString addressOf(const QList<CsvField>& fields)
{
    const QString station = fields.at(STATION).text;
    const QString address = fields.at(REGISTER).text + fields.at(ADDRESS).text;
    return station.isEmpty() ? address : address + QLatin1Char('@') + station;
}

bool takePlace(const QList<CsvField>& fields, int defaultStation, RecipeRow* row, QString* error)
{
    if (!isNumber(fields.at(ADDRESS).text)) {
        *error = QStringLiteral("'%1' is not an address; write its number, of X and Y in octal")
                     .arg(fields.at(ADDRESS).text);
        return false;
    }
    if (!findRegisterType(fields.at(REGISTER).text)) {
        *error = QStringLiteral("unknown register '%1'; the types are %2")
                     .arg(fields.at(REGISTER).text, registerTypeNames());
        return false;
    }
    if (!parseAddressRange(addressOf(fields), &row->range, error))
        return false;
    if (row->range.station < 0)
        row->range.station = defaultStation;
    return true;
}

bool takeType(const QList<CsvField>& fields, RecipeRow* row, QString* error)
{
    const QString name = fields.at(TYPE).text;
    row->type = findRecipeValueType(name);
    if (!row->type) {
        *error =
            QStringLiteral("unknown type '%1'; the types are %2").arg(name, recipeValueTypeNames());
        return false;
    }
    const RegisterType* const registers = row->range.type;
    if (!suits(row->type, registers)) {
        *error = QStringLiteral("type %1 does not suit register %2")
                     .arg(name, QLatin1String(registers->name));
        return false;
    }
    row->range.values = addressesPerValue(row->type, registers);
    AddressRange whole;
    const QString address = addressText(registers, row->range.address);
    return parseAddressRange(QStringLiteral("%1:%2").arg(address).arg(row->range.values), &whole,
                             error);
}

bool takeValue(const QList<CsvField>& fields, RecipeRow* row, QString* error)
{
    const QString text = fields.at(VALUE).text;
    row->hasValue = !text.isEmpty();
    return !row->hasValue || parseRecipeValue(row->type, text, &row->value, error);
}

} // namespace

QString RecipeRow::place() const
{
    return name.isEmpty() ? QStringLiteral("line %1").arg(line)
                          : QStringLiteral("line %1 (%2)").arg(line).arg(name);
}

bool RecipeFile::parse(const QByteArray& text, int defaultStation, RecipeFile* file, QString* error)
{
    *file = RecipeFile();
    file->m_lines = text.split('\n');
    bool hasHeader = false;
    for (int i = 0; i < file->m_lines.size(); ++i) {
        const QByteArray& line = file->m_lines.at(i);
        if (isSkipped(line))
            continue;
        const bool good =
            hasHeader ? file->takeRow(i, defaultStation, error) : file->takeHeader(line, error);
        if (!good) {
            *error = at(i + 1, *error);
            return false;
        }
        hasHeader = true;
    }
    if (file->m_rows.isEmpty()) {
        *error = hasHeader ? QStringLiteral("no rows behind the header")
                           : QStringLiteral("no header line; it is %1").arg(QLatin1String(HEADER));
        return false;
    }
    return true;
}

bool RecipeFile::takeHeader(const QByteArray& line, QString* error)
{
    const bool isMarked = line.startsWith(UTF8_BYTE_ORDER_MARK);
    QList<CsvField> fields;
    if (!splitCsvLine(isMarked ? line.mid(3) : line, &fields, error))
        return false;
    QStringList names;
    for (const CsvField& field : fields)
        names << field.text;
    if (names.join(QLatin1Char(',')) == QLatin1String(HEADER))
        return true;
    *error = QStringLiteral("the first row must be the header %1").arg(QLatin1String(HEADER));
    return false;
}

bool RecipeFile::takeRow(int index, int defaultStation, QString* error)
{
    QList<CsvField> fields;
    if (!splitCsvLine(m_lines.at(index), &fields, error))
        return false;
    if (fields.size() != COLUMN_COUNT) {
        *error = QStringLiteral("%1 columns instead of the %2 of the header")
                     .arg(fields.size())
                     .arg(static_cast<int>(COLUMN_COUNT));
        return false;
    }
    RecipeRow row;
    row.line = index + 1;
    row.name = fields.at(NAME).text;
    if (!takePlace(fields, defaultStation, &row, error) || !takeType(fields, &row, error)
        || !takeValue(fields, &row, error))
        return false;
    m_rows.append(row);
    m_places.append({fields.at(VALUE).begin, fields.at(VALUE).length});
    return true;
}

QByteArray RecipeFile::withValues(const QList<quint32>& values) const
{
    QList<QByteArray> lines = m_lines;
    for (int i = 0; i < m_rows.size(); ++i) {
        const RecipeRow& row = m_rows.at(i);
        if (row.hasValue && row.value == values.at(i))
            continue;
        const QByteArray text = recipeValueText(row.type, values.at(i)).toLatin1();
        lines[row.line - 1].replace(m_places.at(i).begin, m_places.at(i).length, text);
    }
    return lines.join('\n');
}
