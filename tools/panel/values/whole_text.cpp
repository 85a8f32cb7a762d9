#include "panel/values/whole_text.h"

#include "addresses/address_text.h"
#include "addresses/digits.h"
#include "panel/values/register_words.h"
#include "registers/register_types.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

const int WORD_DIGITS = 4; // hexadecimal, and of a Bcd
const int BCD_WORD_BITS = 16;
const quint64 HIGHEST_BCD = 9999;

struct Limits {
    Decimal lowest;
    Decimal highest;
};

bool refuseWhole(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

/// A plain value is as it was read or typed: without sign, or as an assignment below 0.
bool isSigned(const ValueFormat& format)
{
    return format.kind == ValueKind::Plain || format.kind == ValueKind::S16
           || format.kind == ValueKind::S32 || format.kind == ValueKind::S64;
}

QString hexText(quint64 word)
{
    return QLatin1String("0x")
           + QStringLiteral("%1").arg(word, WORD_DIGITS, 16, QLatin1Char('0')).toUpper();
}

/// False when a digit is above 9.
bool bcdNumber(quint64 word, quint64* number)
{
    *number = 0;
    for (int shift = BCD_WORD_BITS - 4; shift >= 0; shift -= 4) {
        const quint64 digit = word >> shift & 0xF;
        if (digit > 9)
            return false;
        *number = *number * 10 + digit;
    }
    return true;
}

quint64 bcdWord(quint64 number)
{
    quint64 word = 0;
    for (int shift = 0; shift < BCD_WORD_BITS; shift += 4, number /= 10)
        word |= number % 10 << shift;
    return word;
}

/// Of numbers before scaling.
Limits limitsOf(const RegisterType* type, const ValueFormat& format)
{
    if (format.kind == ValueKind::Bit)
        return {Decimal(0), Decimal(1)};
    if (format.kind == ValueKind::Bcd)
        return {Decimal(0), Decimal::ofUnsigned(HIGHEST_BCD)};
    if (format.kind == ValueKind::Plain) {
        // Below 0 it would be read back as another number, which only a bare one may.
        const bool isBare = !format.isScaled() && !format.lowest && !format.highest;
        return {Decimal(isBare ? lowestValue(type) : 0), Decimal(highestValue(type))};
    }
    const int bits = bitsOf(format);
    const quint64 half = quint64(1) << (bits - 1);
    if (isSigned(format))
        return {Decimal::ofUnsigned(half).negated(), Decimal::ofUnsigned(half - 1)};
    return {Decimal(0), Decimal::ofUnsigned(half - 1 + half)};
}

Decimal scaled(const ValueFormat& format, const Decimal& number)
{
    return number.times(format.scale).plus(format.offset);
}

/// Decimal, 0x hexadecimal or 0b binary.
bool parseUnscaled(const QString& typed, Decimal* number, QString* fault)
{
    const bool isHex = typed.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const bool isBinary = typed.startsWith(QLatin1String("0b"), Qt::CaseInsensitive);
    const int radix = isHex ? 16 : isBinary ? 2 : 10;
    const bool isNegative = typed.startsWith(QLatin1Char('-'));
    const QString digits = typed.mid(radix != 10 ? 2 : isNegative ? 1 : 0);
    if (!hasOnlyDigits(digits, radix))
        return refuseWhole(fault, Text::tr("'%1' is not a decimal, 0x hexadecimal or 0b binary "
                                           "number")
                                      .arg(typed));
    if (radix == 10)
        return Decimal::parse(typed, number)
               || refuseWhole(fault, Text::tr("%1 does not fit; it is too long").arg(typed));
    bool fits = false;
    *number = Decimal::ofUnsigned(digits.toULongLong(&fits, radix));
    return fits || refuseWhole(fault, Text::tr("%1 does not fit; it is too long").arg(typed));
}

/// The number before scaling whose scaled one is nearest; of two the one farther from 0.
Decimal nearestStep(const ValueFormat& format, const Decimal& wanted)
{
    const Decimal below =
        wanted.minus(format.offset).dividedBy(format.scale, 0, nullptr); // nearer to 0
    Decimal nearest = below;
    for (const int step : {-1, 1}) {
        const Decimal other = below.plus(Decimal(step));
        const Decimal distance = scaled(format, other).minus(wanted).absolute();
        const int order = distance.compare(scaled(format, nearest).minus(wanted).absolute());
        if (order < 0 || (order == 0 && other.absolute().compare(nearest.absolute()) > 0))
            nearest = other;
    }
    return nearest;
}

QString scaledText(const ValueFormat& format, const Decimal& number)
{
    const int decimals = shownDecimals(format);
    return scaled(format, number).rounded(decimals).text(decimals);
}

bool parseSteps(const ValueFormat& format, const QString& typed, Decimal* number, QString* fault)
{
    Decimal wanted;
    if (!Decimal::parse(typed, &wanted))
        return refuseWhole(fault, Text::tr("'%1' is not a decimal number").arg(typed));
    *number = nearestStep(format, wanted);
    // Half of the last digit that is shown may be lost; without a scale nothing.
    const Decimal half =
        format.isScaled() ? Decimal(5).timesPowerOfTen(-shownDecimals(format) - 1) : Decimal();
    const Decimal lost = wanted.minus(scaled(format, *number)).absolute();
    return lost.compare(half) <= 0
           || refuseWhole(
               fault, Text::tr("%1 is between two steps of %2; the nearest is %3")
                          .arg(typed, format.scale.absolute().text(), scaledText(format, *number)));
}

bool checkLimits(const RegisterType* type, const ValueFormat& format, const QString& typed,
                 const Decimal& number, QString* fault)
{
    const Limits limits = limitsOf(type, format);
    if (number.compare(limits.lowest) >= 0 && number.compare(limits.highest) <= 0)
        return true;
    const bool turns = format.scale.isNegative();
    const QString lowest = scaledText(format, turns ? limits.highest : limits.lowest);
    const QString highest = scaledText(format, turns ? limits.lowest : limits.highest);
    // Of a single bit the register's name would tell what all of it takes.
    return refuseWhole(
        fault, format.bit >= 0 ? Text::tr("%1 does not fit; one bit of a word takes %2 to %3")
                                     .arg(typed, lowest, highest)
                               : Text::tr("%1 does not fit; %2 takes %3 to %4")
                                     .arg(typed, QString::fromLatin1(type->name), lowest, highest));
}

quint64 bitsOfNumber(const ValueFormat& format, const Decimal& number)
{
    quint64 bits = 0;
    qint64 negative = 0;
    if (!number.toUnsigned(&bits) && number.toSigned(&negative))
        bits = static_cast<quint64>(negative);
    return format.kind == ValueKind::Bcd ? bcdWord(bits) : bits;
}

} // namespace

bool wholeDecimal(const ValueFormat& format, quint64 bits, Decimal* number)
{
    quint64 digits = bits;
    if (format.kind == ValueKind::Bcd && !bcdNumber(bits, &digits))
        return false;
    const Decimal whole =
        isSigned(format) ? Decimal(withSign(bits, bitsOf(format))) : Decimal::ofUnsigned(digits);
    *number = format.isScaled() ? scaled(format, whole) : whole;
    return true;
}

QString wholeText(const ValueFormat& format, quint64 bits)
{
    if (format.kind == ValueKind::Hex)
        return hexText(bits);
    if (format.kind == ValueKind::Bin)
        return QLatin1String("0b")
               + QStringLiteral("%1").arg(bits, BCD_WORD_BITS, 2, QLatin1Char('0'));
    const bool isPlain = !format.isScaled() && format.decimals < 0;
    if (isPlain && format.kind != ValueKind::Bcd)
        return isSigned(format) ? QString::number(withSign(bits, bitsOf(format)))
                                : QString::number(bits);
    Decimal number;
    if (!wholeDecimal(format, bits, &number))
        return hexText(bits);
    const int decimals = shownDecimals(format);
    return number.rounded(decimals).text(decimals);
}

bool parseWhole(const RegisterType* type, const ValueFormat& format, const QString& typed,
                quint64* bits, QString* fault)
{
    const bool isRegister =
        typed.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) && format.kind == ValueKind::Bcd;
    const bool hasSteps = format.isScaled() || format.decimals >= 0;
    Decimal number;
    if (isRegister) {
        ValueFormat word;
        word.kind = ValueKind::Hex; // as it stands, with digits above 9
        return parseWhole(type, word, typed, bits, fault);
    }
    if (hasSteps ? !parseSteps(format, typed, &number, fault)
                 : !parseUnscaled(typed, &number, fault))
        return false;
    if (!checkLimits(type, format, typed, number, fault))
        return false;
    *bits = bitsOfNumber(format, number);
    return true;
}

} // namespace kx
