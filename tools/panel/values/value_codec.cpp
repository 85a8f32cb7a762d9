#include "panel/values/value_codec.h"

#include "panel/values/ascii_text.h"
#include "panel/values/float_text.h"
#include "panel/values/register_words.h"
#include "panel/values/whole_text.h"
#include "system/translated_text.h"

#include <cmath>

namespace kx
{

namespace
{

bool isWhole(const ValueFormat& format, const QList<qint64>& raw)
{
    return !raw.isEmpty() && raw.size() == registersOf(format);
}

bool refuseValue(QString* fault, const QString& message)
{
    *fault = message;
    return false;
}

bool parseAscii(const ValueFormat& format, const QString& typed, QList<qint64>* raw, QString* fault)
{
    QByteArray bytes;
    if (!parseEscapedText(typed, &bytes, fault))
        return false;
    const int most = 2 * registersOf(format);
    if (bytes.size() > most)
        return refuseValue(fault,
                           Text::tr("'%1' does not fit; it has %2 bytes, and the registers "
                                    "hold %3")
                               .arg(typed, QString::number(bytes.size()), QString::number(most)));
    *raw = wordsOfBytes(format, bytes);
    return true;
}

bool decimalOf(const ValueFormat& format, const QList<qint64>& raw, Decimal* number)
{
    if (!isWhole(format, raw) || format.kind == ValueKind::Ascii)
        return false;
    const quint64 bits = numberOfWords(format, raw);
    return isFloating(format) ? floatDecimal(format, bits, number)
                              : wholeDecimal(format, bits, number);
}

QString minusZeroText(ValueFormat format, const QList<qint64>& raw)
{
    format.decimals = -1; // rounded it would be "0.0"
    return valueText(format, raw);
}

/// Of one that has a bound.
QString typedBoundsFault(const ValueFormat& format, const QString& typed)
{
    if (!format.highest)
        return Text::tr("%1 is refused; it must be at least %2").arg(typed, format.lowest->text());
    if (!format.lowest)
        return Text::tr("%1 is refused; it must be at most %2").arg(typed, format.highest->text());
    return Text::tr("%1 is refused; it must be at least %2 and at most %3")
        .arg(typed, format.lowest->text(), format.highest->text());
}

bool leavesBounds(const ValueFormat& format, const QList<qint64>& raw, const QString& typed,
                  QString* fault)
{
    if (!format.lowest && !format.highest)
        return false;
    Decimal number;
    const bool isNumber = decimalOf(format, raw, &number);
    if (isNumber && (!format.lowest || number.compare(*format.lowest) >= 0)
        && (!format.highest || number.compare(*format.highest) <= 0))
        return false;
    *fault = typedBoundsFault(format, typed);
    return true;
}

} // namespace

QList<qint64> rawOfValue(const QList<qint64>& raw, const ValueFormat& format, int value)
{
    const int registers = registersOf(format);
    const QList<qint64> part = raw.mid(value * registers, registers);
    return isWhole(format, part) ? part : QList<qint64>();
}

QString valueText(const ValueFormat& format, const QList<qint64>& raw)
{
    if (!isWhole(format, raw))
        return QString();
    if (format.kind == ValueKind::Ascii)
        return escapedText(bytesOfWords(format, raw));
    const quint64 bits = numberOfWords(format, raw);
    return isFloating(format) ? floatText(format, bits) : wholeText(format, bits);
}

QJsonValue valueJson(const ValueFormat& format, const QList<qint64>& raw)
{
    Decimal number;
    const bool isNumber = format.kind != ValueKind::Hex && format.kind != ValueKind::Bin
                          && decimalOf(format, raw, &number);
    const bool isExact = isFloating(format) || number.significantDigits() <= EXACT_DIGITS;
    if (isNumber && isFloating(format) && isMinusZero(format, numberOfWords(format, raw)))
        return minusZeroText(format, raw); // JSON may lose the sign
    return isNumber && isExact && std::isfinite(number.toDouble())
               ? QJsonValue(number.toDouble())
               : QJsonValue(valueText(format, raw));
}

bool valueNumber(const ValueFormat& format, const QList<qint64>& raw, double* number)
{
    Decimal exact;
    const bool isNumber = decimalOf(format, raw, &exact) && std::isfinite(exact.toDouble());
    *number = isNumber ? exact.toDouble() : 0;
    return isNumber;
}

bool parseValue(const RegisterType* type, const ValueFormat& format, const QString& typed,
                QList<qint64>* raw, QString* fault)
{
    if (format.kind == ValueKind::Ascii)
        return parseAscii(format, typed, raw, fault);
    quint64 bits = 0;
    const bool isTaken = isFloating(format) ? parseFloat(format, typed, &bits, fault)
                                            : parseWhole(type, format, typed, &bits, fault);
    if (!isTaken)
        return false;
    *raw = wordsOfNumber(format, bits);
    return !leavesBounds(format, *raw, typed, fault);
}

qint64 withBit(qint64 word, int bit, bool isSet)
{
    const qint64 mask = qint64(1) << bit;
    return isSet ? word | mask : word & ~mask;
}

} // namespace kx
