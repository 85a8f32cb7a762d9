#ifndef KX_ADDRESSES_DIGITS_H
#define KX_ADDRESSES_DIGITS_H

#include <QtCore/QString>

namespace kx
{

/// Whether a text is a number of digits only, at least one: no sign, blank, prefix or
/// digit of another script, all of which QString's own conversion takes.
/// @param radix 2 to 16
bool hasOnlyDigits(const QString& text, int radix);

} // namespace kx

#endif
