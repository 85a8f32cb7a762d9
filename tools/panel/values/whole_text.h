/// Numbers without a fraction of their own, as text and back: all kinds but floats and texts.
#ifndef KX_PANEL_VALUES_WHOLE_TEXT_H
#define KX_PANEL_VALUES_WHOLE_TEXT_H

#include "panel/values/value_format.h"

namespace kx
{

/// The bits as text, scaled and with the format's decimals.
QString wholeText(const ValueFormat& format, quint64 bits);

/// The way back. False and in `*fault` when it is no number, does not fit, or is between two steps
/// of the scale.
bool parseWhole(const RegisterType* type, const ValueFormat& format, const QString& typed,
                quint64* bits, QString* fault);

/// The scaled number; false when a Bcd has a digit above 9.
bool wholeDecimal(const ValueFormat& format, quint64 bits, Decimal* number);

} // namespace kx

#endif
