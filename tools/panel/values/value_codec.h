/// Values between the registers that hold them and the text that people read and type.
///
/// What valueText() shows is taken by parseValue() and gives the same registers, whatever they
/// hold; but for the decimals of a Float or Double, which round what is shown.
///
///     decimal    1234   -5   12.5    scaled with as many digits as the scale and offset have
///     Hex, Bin   0x04D2   0b0000010011010010
///     Bcd        1234; a register with a digit above 9 as it stands: 0x12A4
///     Float      0.1   -0   1e+20   inf   -inf   nan   nan(0x7FC00001) with the bits of this one
///     Ascii      text without the zeros at its end; \\ \" \n \r \t \xHH for what is no text
#ifndef KX_PANEL_VALUES_VALUE_CODEC_H
#define KX_PANEL_VALUES_VALUE_CODEC_H

#include "panel/values/value_format.h"

#include <QtCore/QJsonValue>
#include <QtCore/QList>

namespace kx
{

/// Digits of a number that JSON, which holds doubles, gives back unchanged.
const int EXACT_DIGITS = 15;

/// The raw values of one value out of those of its range, as Session::values() gives them; empty
/// when there are not as many.
KXRUNTIME_EXPORT QList<qint64> rawOfValue(const QList<qint64>& raw, const ValueFormat& format,
                                          int value);

/// The value as text, without its unit.
/// @param raw registersOf() of them, one per address: 0 or 1, a word, or a 32CV; else empty text
KXRUNTIME_EXPORT QString valueText(const ValueFormat& format, const QList<qint64>& raw);

/// A number where JSON holds it exactly (EXACT_DIGITS, finite), else the text.
KXRUNTIME_EXPORT QJsonValue valueJson(const ValueFormat& format, const QList<qint64>& raw);

/// The value as the nearest number, scaled; of Hex, Bin and Bit the number they stand for.
/// @return false, and 0, when it has none: Ascii, digits above 9, NaN, what is
///         beyond the highest double, and fewer raw values
KXRUNTIME_EXPORT bool valueNumber(const ValueFormat& format, const QList<qint64>& raw,
                                  double* number);

/// Typed text to the raw values of one value, registersOf() of them. A single bit of a word gives
/// that bit, 0 or 1: withBit() puts it in the word.
/// @param type of the addresses, which says what fits a plain value
/// @return false and one line in `*fault` when it is no such value, does not fit, is between two
///         steps of the scale, or leaves min and max
KXRUNTIME_EXPORT bool parseValue(const RegisterType* type, const ValueFormat& format,
                                 const QString& typed, QList<qint64>* raw, QString* fault);

/// The word with that bit, 0 to 15, as `isSet` says.
KXRUNTIME_EXPORT qint64 withBit(qint64 word, int bit, bool isSet);

} // namespace kx

#endif
