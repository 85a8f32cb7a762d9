/// IEEE 754 numbers as the shortest text that gives the same bits.
#ifndef KX_PANEL_VALUES_FLOAT_TEXT_H
#define KX_PANEL_VALUES_FLOAT_TEXT_H

#include "panel/values/value_format.h"

namespace kx
{

/// The bits of a Float or Double as text: scaled and with its decimals, "nan(0x7FC00001)", "-inf".
QString floatText(const ValueFormat& format, quint64 bits);

/// The way back. False and in `*fault` when it is no number, too large or too near to 0.
bool parseFloat(const ValueFormat& format, const QString& typed, quint64* bits, QString* fault);

/// Whether the bits are those of -0, before scaling; 0 and -0 are one number.
bool isMinusZero(const ValueFormat& format, quint64 bits);

/// The scaled number, its decimals not considered; false when it is not finite.
bool floatDecimal(const ValueFormat& format, quint64 bits, Decimal* number);

} // namespace kx

#endif
