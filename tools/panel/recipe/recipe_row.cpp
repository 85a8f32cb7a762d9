#include "panel/recipe/recipe_row.h"

#include "addresses/digits.h"
#include "panel/files/format_columns.h"
#include "panel/recipe/recipe_cells.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

enum Column { NAME, STATION, REGISTER, ADDRESS, TYPE = RECIPE_TYPE, VALUE = RECIPE_VALUE, FORMAT };

const quint32 ROW_WORD_MASK = 0xFFFF;

bool refuseRow(QString* error, const QString& fault)
{
    *error = fault;
    return false;
}

QString fieldText(const CsvRow& csv, int column)
{
    return csv.fields.at(column).text;
}

/// The first of the columns that tell a format in which the row has something; -1: none.
int formatColumnOf(const CsvRow& csv)
{
    for (int i = 0; i < formatColumns().size(); ++i) {
        if (!fieldText(csv, FORMAT + i).isEmpty())
            return FORMAT + i;
    }
    return -1;
}

bool refuseField(const CsvRow& csv, int column, const QString& fault, QString* error)
{
    return refuseRow(error, columnFault(recipeColumns().at(column), fieldText(csv, column), fault));
}

bool refuseBit(const QString& word, const QString& bit, QString* error)
{
    return refuseRow(error, Text::tr("%1 is one bit of a word, and a recipe holds whole values; "
                                     "take %2 with format bin or hex")
                                .arg(bit, word));
}

bool checkNumber(const CsvRow& csv, QString* error)
{
    if (!hasOnlyDigits(fieldText(csv, ADDRESS), 10))
        return refuseRow(error,
                         Text::tr("'%1' is not an address; write its number, of X and Y in octal")
                             .arg(fieldText(csv, ADDRESS)));
    return findRegisterType(fieldText(csv, REGISTER))
           || refuseRow(error, Text::tr("unknown register '%1'; the types are %2")
                                   .arg(fieldText(csv, REGISTER), registerTypeNames()));
}

/// A file says what the registers hold: nothing below 0 that would be read back as another number.
ValueKind plainKind(const RegisterType* type)
{
    switch (type->registerClass) {
    case BIT_CLASS:
        return ValueKind::Bit;
    case DOUBLE_WORD_CLASS:
        return ValueKind::U32;
    default:
        return ValueKind::U16;
    }
}

QString unknownTypeText(const QString& name)
{
    ValueFormat format;
    QString fault;
    if (parseKind(name, &format, &fault))
        return Text::tr("'%1' is a format and no type; it belongs into the column format")
            .arg(name);
    return Text::tr("unknown type '%1'; the types are %2").arg(name, recipeValueTypeNames());
}

bool takeType(const CsvRow& csv, RecipeRow* row, QString* error)
{
    const QString name = fieldText(csv, TYPE);
    row->type = findRecipeValueType(name);
    if (!row->type)
        return refuseRow(error, unknownTypeText(name));
    const RegisterType* const registers = row->range.type;
    if (!suits(row->type, registers))
        return refuseRow(error, Text::tr("type %1 does not suit register %2")
                                    .arg(name, QLatin1String(registers->name)));
    if (formatColumnOf(csv) >= 0)
        return refuseField(csv, formatColumnOf(csv),
                           Text::tr("goes with a format, and the row has type %1").arg(name),
                           error);
    row->format.kind = row->type->kind;
    row->format.isCounter = registers->registerClass == DOUBLE_WORD_CLASS;
    row->range.values = addressesPerValue(row->type, registers);
    AddressRange whole;
    const QString address = addressText(registers, row->range.address);
    return parseAddressRange(QStringLiteral("%1:%2").arg(address).arg(row->range.values), &whole,
                             error);
}

bool takeTypedValue(const QString& text, RecipeRow* row, QString* error)
{
    quint32 bits = 0;
    if (!parseRecipeValue(row->type, text, &bits, error))
        return false;
    row->value = row->range.values == 1 ? QList<qint64>{bits}
                                        : QList<qint64>{bits & ROW_WORD_MASK, bits >> WORD_BITS};
    return true;
}

/// Min and max are for downloads: what an upload finds must not keep the next one from reading.
bool takeValue(const CsvRow& csv, RecipeRow* row, QString* error)
{
    const QString text = fieldText(csv, VALUE);
    row->hasValue = !text.isEmpty();
    if (!row->hasValue)
        return true;
    if (row->type)
        return takeTypedValue(text, row, error);
    ValueFormat unbounded = row->format;
    unbounded.lowest.reset();
    unbounded.highest.reset();
    return parseValue(row->range.type, unbounded, text, &row->value, error);
}

} // namespace

const QList<CsvColumn>& recipeColumns()
{
    static const QList<CsvColumn> columns =
        QList<CsvColumn>{{"name", false},    {"station", false}, {"register", false},
                         {"address", false}, {"type", false},    {"value", true}}
        + formatColumns() + QList<CsvColumn>{{"comment", false}};
    return columns;
}

RecipeRowParser::RecipeRowParser(const RecipeDefaults& defaults, bool needsType)
    : m_station(defaults.station), m_order(defaults.order), m_needsType(needsType)
{
    for (const Tag& tag : defaults.tags)
        m_tags.insert(tag.name, tag);
}

bool RecipeRowParser::parse(const CsvRow& csv, RecipeRow* row, QString* error) const
{
    row->line = csv.line;
    row->name = fieldText(csv, NAME);
    const bool hasAddress =
        !fieldText(csv, REGISTER).isEmpty() || !fieldText(csv, ADDRESS).isEmpty();
    const bool isTaken = hasAddress ? takeAddress(csv, row, error) && takeFormat(csv, row, error)
                                    : takeTag(csv, row, error);
    if (!isTaken)
        return false;
    if (row->range.station < 0)
        row->range.station = m_station;
    if (row->format.kind == ValueKind::Plain)
        row->format.kind = plainKind(row->range.type);
    if (!row->type)
        takeOrder(m_order, &row->format);
    return takeValue(csv, row, error);
}

bool RecipeRowParser::takeTag(const CsvRow& csv, RecipeRow* row, QString* error) const
{
    const auto found = m_tags.constFind(row->name);
    if (row->name.isEmpty() || m_tags.isEmpty())
        return refuseRow(error, Text::tr("the row has no address"));
    if (found == m_tags.constEnd())
        return refuseRow(error,
                         Text::tr("the row has no address, and '%1' is no tag").arg(row->name));
    const Tag& tag = found.value();
    const int format = formatColumnOf(csv);
    for (const int column : {int(STATION), int(TYPE), format}) {
        if (column >= 0 && !fieldText(csv, column).isEmpty())
            return refuseField(csv, column, Text::tr("the tag '%1' says that").arg(tag.name),
                               error);
    }
    if (tag.format.bit >= 0)
        return refuseBit(addressText(tag.range.type, tag.range.address),
                         valueName(tag.range, tag.format, 0), error);
    if (valuesIn(tag.range, tag.format) != 1)
        return refuseRow(error,
                         Text::tr("the tag '%1' has %2 values, and a row one")
                             .arg(tag.name, QString::number(valuesIn(tag.range, tag.format))));
    row->range = tag.range;
    row->format = tag.format;
    return true;
}

// As in an address list, so that the same rules and messages hold.
bool RecipeRowParser::takeAddress(const CsvRow& csv, RecipeRow* row, QString* error) const
{
    const QString number = fieldText(csv, ADDRESS);
    const QString address = fieldText(csv, REGISTER) + number;
    const QString station = fieldText(csv, STATION);
    ValueFormat format;
    QString fault;
    const bool isOther = number.contains(QLatin1Char(':')) || number.contains(QLatin1Char('@'))
                         || number.contains(QLatin1Char('/'));
    if (!isOther && parseValueAddress(address, &row->range, &format, &fault) && format.bit >= 0)
        return refuseBit(addressText(row->range.type, row->range.address), address, error);
    if (!fieldText(csv, REGISTER).isEmpty() && !checkNumber(csv, error))
        return false;
    if (isOther)
        return refuseField(csv, ADDRESS, Text::tr("station and format have columns of their own"),
                           error);
    return parseAddressRange(station.isEmpty() ? address : address + QLatin1Char('@') + station,
                             &row->range, error);
}

bool RecipeRowParser::takeFormat(const CsvRow& csv, RecipeRow* row, QString* error) const
{
    const bool hasType = !fieldText(csv, TYPE).isEmpty();
    if (hasType || (m_needsType && fieldText(csv, FORMAT).isEmpty()))
        return takeType(csv, row, error);
    QStringList faults;
    takeFormatColumns(csv, FORMAT, row->range.type, &row->format, &faults);
    if (!faults.isEmpty())
        return refuseRow(error, faults.first());
    QString fault;
    return coverValues(&row->range, &row->format, &fault)
           || refuseRow(error, faultyText(addressText(row->range.type, row->range.address), fault));
}

QString recipeText(const RecipeRow& row, const QList<qint64>& value)
{
    if (row.type)
        return recipeValueText(row.type,
                               static_cast<quint32>(value.value(0) | value.value(1) << WORD_BITS));
    ValueFormat format = row.format;
    if (isFloating(format))
        format.decimals = -1; // which would round it
    const QString text = valueText(format, value);
    return text.isEmpty() ? QStringLiteral("\\x00") : text; // an empty field is no value
}

} // namespace kx
