#include "panel/sequence/operand.h"

#include "panel/files/whole_range.h"
#include "panel/text/counted.h"
#include "panel/values/value_address.h"
#include "panel/values/value_codec.h"
#include "registers/register_types.h"

namespace kx
{

namespace
{

const qint64 HIGHEST_WORD = 0xFFFF;
const qint64 HIGHEST_32CV = 0xFFFFFFFF;

/// Of a coil, or one bit of a word.
bool isBit(const Tag& tag)
{
    return tag.format.kind == ValueKind::Bit || tag.range.type->registerClass == BIT_CLASS;
}

/// Whether the number typed was rounded to the one that is shown. A negative number for a word
/// without sign is none of these.
bool liesBetweenValues(const ValueFormat& format, const QString& typed, const QString& shown)
{
    Decimal expected;
    Decimal nearest;
    if (isFloating(format) || !Decimal::parse(typed, &expected) || !Decimal::parse(shown, &nearest))
        return false;
    const Decimal distance = expected.minus(nearest).absolute();
    return !distance.isZero() && distance.compare(format.scale.absolute()) < 0;
}

QString withoutWord(const Tag& tag, const QString& typed)
{
    if (isBit(tag) && typed == QLatin1String("on"))
        return QStringLiteral("1");
    if (isBit(tag) && typed == QLatin1String("off"))
        return QStringLiteral("0");
    return typed;
}

bool parseOne(const Tag& tag, const ValueFormat& format, const QString& typed,
              QList<qint64>* values, QString* fault)
{
    return parseValue(tag.range.type, format, withoutWord(tag, typed), values, fault);
}

} // namespace

QString operandText(const Tag& tag)
{
    if (tag.name.isEmpty())
        return valueAddressText(tag.range, tag.format);
    return QStringLiteral("%1 (%2@%3)")
        .arg(tag.name, valueName(tag.range, tag.format, 0), QString::number(tag.range.station));
}

bool fitsRequest(const Tag& tag, int maxWords, QString* fault)
{
    *fault = requestFault(tag, maxWords);
    return fault->isEmpty();
}

bool isWritable(const Tag& tag, QString* fault)
{
    if (!tag.range.type->writable)
        *fault = QStringLiteral("%1 is an input and cannot be written").arg(operandText(tag));
    else if (tag.format.bit >= 0 && !keepsItsWords(tag.range.type))
        *fault =
            QStringLiteral("%1: the controller changes this word by itself, so that one bit of "
                           "it cannot be written; write the whole word")
                .arg(operandText(tag));
    return fault->isEmpty();
}

bool parseValues(const Tag& tag, const QStringList& typed, QList<qint64>* values, QString* fault)
{
    const int wanted = valuesIn(tag.range, tag.format);
    if (typed.size() != wanted) {
        *fault =
            QStringLiteral("%1 for %2")
                .arg(counted(typed.size(), "value", "values"), counted(wanted, "value", "values"));
        return false;
    }
    for (const QString& text : typed) {
        QList<qint64> one;
        if (!parseOne(tag, tag.format, text, &one, fault))
            return false;
        *values << one;
    }
    return true;
}

bool parseExpected(const Tag& tag, const QString& typed, QString* shown, QString* fault)
{
    ValueFormat format = tag.format;
    format.lowest.reset();
    format.highest.reset();
    QList<qint64> values;
    if (!parseOne(tag, format, typed, &values, fault))
        return false;
    // A bit of a word comes as the bit alone, and a negative number for a word as it is.
    if (format.bit >= 0)
        values.first() = withBit(0, format.bit, values.first() != 0);
    for (qint64& value : values)
        value &= tag.range.type->registerClass == DOUBLE_WORD_CLASS ? HIGHEST_32CV : HIGHEST_WORD;
    *shown = comparedText(tag, values);
    if (!liesBetweenValues(format, typed, *shown))
        return true;
    *fault =
        QStringLiteral("'%1' lies between two of its values, of which %2 is the nearest; write "
                       "= %1 +- 0.5, say, or in LOWEST..HIGHEST")
            .arg(typed, *shown);
    return false;
}

QString comparedText(const Tag& tag, const QList<qint64>& values)
{
    ValueFormat format = tag.format;
    format.decimals = -1;
    return valueText(format, values.mid(0, registersOf(format)));
}

QString shownText(const Tag& tag, const QList<qint64>& values)
{
    const QString text = valueText(tag.format, values.mid(0, registersOf(tag.format)));
    return tag.format.unit.isEmpty() ? text : text + QLatin1Char(' ') + tag.format.unit;
}

} // namespace kx
