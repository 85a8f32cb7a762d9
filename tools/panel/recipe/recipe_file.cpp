#include "panel/recipe/recipe_file.h"

#include "registers/register_types.h"

namespace kx
{

namespace
{

enum Column { NAME, STATION, REGISTER, ADDRESS, TYPE, VALUE };

const QList<CsvColumn>& columns()
{
    static const QList<CsvColumn> columns = {{"name", false},    {"station", false},
                                             {"register", true}, {"address", true},
                                             {"type", true},     {"value", true}};
    return columns;
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

bool parsePlace(const QList<CsvField>& fields, int defaultStation, RecipeRow* row, QString* error)
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

bool parseType(const QList<CsvField>& fields, RecipeRow* row, QString* error)
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

bool parseValue(const QList<CsvField>& fields, RecipeRow* row, QString* error)
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
    CsvFault fault;
    bool isGood = CsvTable::parse(text, columns(), &file->m_table, &fault);
    for (const CsvRow& row : file->m_table.rows()) {
        if (!isGood)
            break;
        fault.line = row.line;
        isGood = file->parseRow(row, defaultStation, &fault.text);
    }
    if (!isGood)
        *error =
            fault.line > 0 ? QStringLiteral("line %1: ").arg(fault.line) + fault.text : fault.text;
    return isGood;
}

bool RecipeFile::parseRow(const CsvRow& csv, int defaultStation, QString* error)
{
    RecipeRow row;
    row.line = csv.line;
    row.name = csv.fields.at(NAME).text;
    if (!parsePlace(csv.fields, defaultStation, &row, error) || !parseType(csv.fields, &row, error)
        || !parseValue(csv.fields, &row, error))
        return false;
    m_rows.append(row);
    return true;
}

QByteArray RecipeFile::withValues(const QList<quint32>& values) const
{
    QMap<int, QByteArray> texts;
    for (int i = 0; i < m_rows.size(); ++i) {
        const RecipeRow& row = m_rows.at(i);
        if (!row.hasValue || row.value != values.at(i))
            texts[i] = recipeValueText(row.type, values.at(i)).toLatin1();
    }
    return m_table.withTexts(VALUE, texts);
}

} // namespace kx
