#include "panel/values/float_text.h"

#include "system/translated_text.h"

#include <QtCore/QRegularExpression>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace kx
{

namespace
{

// More digits than any number halfway between two doubles has.
const int ENOUGH_DIGITS = 800;

const quint64 FLOAT_SIGN = 0x80000000U;
const quint64 DOUBLE_SIGN = 0x8000000000000000U;

quint64 signOf(const ValueFormat& format)
{
    return format.kind == ValueKind::Float ? FLOAT_SIGN : DOUBLE_SIGN;
}

template <typename To, typename From>
To sameBits(From from)
{
    static_assert(sizeof(To) == sizeof(From), "of one size");
    To to;
    std::memcpy(&to, &from, sizeof to);
    return to;
}

float floatOf(quint64 bits)
{
    return sameBits<float>(static_cast<quint32>(bits));
}

quint64 bitsOfNearest(const ValueFormat& format, const Decimal& number)
{
    return format.kind == ValueKind::Float ? sameBits<quint32>(number.toFloat())
                                           : sameBits<quint64>(number.toDouble());
}

bool isFinite(const ValueFormat& format, quint64 bits)
{
    return format.kind == ValueKind::Float ? std::isfinite(floatOf(bits))
                                           : std::isfinite(sameBits<double>(bits));
}

bool isNan(const ValueFormat& format, quint64 bits)
{
    return format.kind == ValueKind::Float ? std::isnan(floatOf(bits))
                                           : std::isnan(sameBits<double>(bits));
}

/// The NaN that has no bits of its own to tell.
quint64 plainNan(const ValueFormat& format)
{
    return format.kind == ValueKind::Float ? 0x7FC00000U : 0x7FF8000000000000U;
}

quint64 infinity(const ValueFormat& format)
{
    return format.kind == ValueKind::Float ? 0x7F800000U : 0x7FF0000000000000U;
}

QString shortestText(const ValueFormat& format, quint64 bits)
{
    char text[32];
    const auto result = format.kind == ValueKind::Float
                            ? std::to_chars(text, text + sizeof text, floatOf(bits))
                            : std::to_chars(text, text + sizeof text, sameBits<double>(bits));
    return QString::fromLatin1(text, static_cast<int>(result.ptr - text));
}

QString withBits(const ValueFormat& format, const QString& text, quint64 bits)
{
    const int digits = format.kind == ValueKind::Float ? 8 : 16;
    const QString hex = QStringLiteral("%1").arg(bits, digits, 16, QLatin1Char('0')).toUpper();
    return QStringLiteral("%1(0x%2)").arg(text, hex);
}

QString specialText(const ValueFormat& format, quint64 bits)
{
    if (!isNan(format, bits))
        return QLatin1String(bits & signOf(format) ? "-inf" : "inf");
    const QString name = QStringLiteral("nan");
    return bits == plainNan(format) ? name : withBits(format, name, bits);
}

/// Takes what floatText() shows of bits that no number tells.
bool parseSpecial(const ValueFormat& format, const QString& typed, quint64* bits)
{
    static const QRegularExpression pattern(QStringLiteral("\\A.+\\(0x([0-9A-F]{1,16})\\)\\z"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(typed);
    if (match.hasMatch()) {
        *bits = match.captured(1).toULongLong(nullptr, 16);
        return (*bits >> 1) < signOf(format)
               && floatText(format, *bits).compare(typed, Qt::CaseInsensitive) == 0;
    }
    for (const quint64 special :
         {plainNan(format), infinity(format), infinity(format) | signOf(format)}) {
        if (typed.compare(specialText(format, special), Qt::CaseInsensitive) != 0)
            continue;
        *bits = special;
        return true;
    }
    return false;
}

/// The scale turned round, with a digit behind all others for what was cut off.
Decimal unscaled(const ValueFormat& format, const Decimal& number)
{
    const Decimal distance = number.minus(format.offset);
    const int places = ENOUGH_DIGITS - distance.magnitude() + format.scale.magnitude();
    bool isCut = false;
    const Decimal quotient = distance.dividedBy(format.scale, places, &isCut);
    const Decimal rest = Decimal(quotient.isNegative() ? -1 : 1).timesPowerOfTen(-places - 1);
    return quotient.plus(isCut ? rest : Decimal());
}

bool refuseFloat(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

} // namespace

bool floatDecimal(const ValueFormat& format, quint64 bits, Decimal* number)
{
    if (!isFinite(format, bits))
        return false;
    Decimal::parse(shortestText(format, bits), number);
    *number = number->times(format.scale).plus(format.offset);
    return true;
}

bool isMinusZero(const ValueFormat& format, quint64 bits)
{
    return bits == signOf(format);
}

QString floatText(const ValueFormat& format, quint64 bits)
{
    Decimal number;
    if (!floatDecimal(format, bits, &number))
        return specialText(format, bits);
    if (format.decimals >= 0)
        return number.rounded(format.decimals).text(format.decimals);
    if (!format.isScaled())
        return shortestText(format, bits);
    return isMinusZero(format, bits) ? withBits(format, number.text(), bits) : number.text();
}

bool parseFloat(const ValueFormat& format, const QString& typed, quint64* bits, QString* fault)
{
    if (parseSpecial(format, typed, bits))
        return true;
    Decimal number;
    if (!Decimal::parse(typed, &number))
        return refuseFloat(fault, Text::tr("'%1' is not a decimal number").arg(typed));
    const Decimal wanted = format.isScaled() ? unscaled(format, number) : number;
    *bits = bitsOfNearest(format, wanted);
    if (!isFinite(format, *bits))
        return refuseFloat(fault,
                           Text::tr("%1 does not fit; it is beyond the highest number").arg(typed));
    if ((*bits & ~signOf(format)) == 0 && !wanted.isZero())
        return refuseFloat(
            fault, Text::tr("%1 does not fit; it is nearer to 0 than any number").arg(typed));
    if (wanted.isZero() && !format.isScaled() && typed.startsWith(QLatin1Char('-')))
        *bits = signOf(format);
    return true;
}

} // namespace kx
