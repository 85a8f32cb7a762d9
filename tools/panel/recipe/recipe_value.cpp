#include "panel/recipe/recipe_value.h"

#include "driver/number_text.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

#include <QtCore/QStringList>

#include <limits>

namespace kx
{

namespace
{

const RecipeValueType TYPES[] = {
    {"bit", 1, 0, 1, ValueKind::Bit},
    {"uint16", 16, 0, std::numeric_limits<quint16>::max(), ValueKind::U16},
    {"int16", 16, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max(),
     ValueKind::S16},
    {"hex16", 16, 0, std::numeric_limits<quint16>::max(), ValueKind::Hex},
    {"uint32", 32, 0, std::numeric_limits<quint32>::max(), ValueKind::U32},
    {"int32", 32, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max(),
     ValueKind::S32},
    {"float", 32, 0, 0, ValueKind::Float},
};

const int HEX16_DIGITS = 4;
const int VALUE_WORD_BITS = 16;
const quint32 VALUE_WORD_MASK = 0xFFFF;

quint32 maskOf(const RecipeValueType* type)
{
    return std::numeric_limits<quint32>::max() >> (32 - type->bits);
}

ValueFormat floatFormat()
{
    ValueFormat format;
    format.kind = ValueKind::Float;
    return format;
}

bool parseFloat(const QString& text, quint32* bits, QString* error)
{
    QList<qint64> words;
    if (!parseValue(nullptr, floatFormat(), text, &words, error))
        return false;
    *bits = static_cast<quint32>(words.first() | words.last() << VALUE_WORD_BITS);
    return true;
}

} // namespace

const RecipeValueType* findRecipeValueType(const QString& name)
{
    for (const RecipeValueType& type : TYPES) {
        if (name == QLatin1String(type.name))
            return &type;
    }
    return nullptr;
}

QString recipeValueTypeNames()
{
    QStringList names;
    for (const RecipeValueType& type : TYPES)
        names << QString::fromLatin1(type.name);
    return names.join(QStringLiteral(", "));
}

bool suits(const RecipeValueType* type, const RegisterType* registers)
{
    switch (registers->registerClass) {
    case BIT_CLASS:
        return type->bits == 1;
    case WORD_CLASS:
        return type->bits == 16 || type->bits == 32;
    case DOUBLE_WORD_CLASS:
        return type->bits == 32 && type->kind != ValueKind::Float; // they count
    default:
        return false;
    }
}

int addressesPerValue(const RecipeValueType* type, const RegisterType* registers)
{
    return type->bits == 32 && registers->registerClass == WORD_CLASS ? 2 : 1;
}

bool parseRecipeValue(const RecipeValueType* type, const QString& text, quint32* bits,
                      QString* error)
{
    if (type->kind == ValueKind::Float)
        return parseFloat(text, bits, error);
    const bool isHex = text.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const qint64 value = isHex ? text.mid(2).toLongLong(&isNumber, 16) : text.toLongLong(&isNumber);
    if (!isNumber || holdsZeroCharacter(text)
        || (isHex && text.mid(2).startsWith(QLatin1Char('-')))) {
        *error = Text::tr("'%1' is not a decimal or 0x hexadecimal number").arg(text);
        return false;
    }
    if (value < type->lowest || value > type->highest) {
        *error = Text::tr("%1 does not fit; %2 takes %3 to %4")
                     .arg(text, QLatin1String(type->name))
                     .arg(type->lowest)
                     .arg(type->highest);
        return false;
    }
    *bits = static_cast<quint32>(value) & maskOf(type);
    return true;
}

QString recipeValueText(const RecipeValueType* type, quint32 bits)
{
    if (type->kind == ValueKind::Float)
        return valueText(floatFormat(), {bits & VALUE_WORD_MASK, bits >> VALUE_WORD_BITS});
    if (type->kind == ValueKind::Hex)
        return QStringLiteral("0x%1").arg(bits, HEX16_DIGITS, 16, QLatin1Char('0'));
    if (type->lowest == 0)
        return QString::number(bits);
    return QString::number(type->bits == 16 ? static_cast<qint16>(bits)
                                            : static_cast<qint32>(bits));
}

} // namespace kx
