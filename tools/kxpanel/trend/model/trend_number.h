/// Numbers of more digits than a double has, such as those of a 64-bit counter beyond 2^53.
#ifndef KX_KXPANEL_TREND_MODEL_TREND_NUMBER_H
#define KX_KXPANEL_TREND_MODEL_TREND_NUMBER_H

#include "kxpanel/trend/history/trend_sample.h"
#include "panel/values/value_format.h"

namespace kxpanel
{

/// Digits behind the point that numbers of a format have at most; negative: any, as floating ones
/// have, which are shown with 15 digits, or it is none of numbers.
int placesOf(const kx::ValueFormat& format);

/// Whether a number may have more digits than the double that is nearest to it.
/// @param places placesOf() the format
bool isLong(double number, int places);

/// A sample that keeps all digits, of a number that isLong().
/// @param text of the number, in decimal
TrendSample longSample(qint64 time, double number, const QString& text, int places);

/// For people: "18446744073709551615"; behind "≈" where digits are missing.
QString numberText(const TrendSample& sample, int places);

/// The same for files, without that mark, which would make it a text there.
QString fileText(const TrendSample& sample, int places);

/// `to` less `from`, as both are shown.
QString differenceText(const TrendSample& from, const TrendSample& to, int places);

} // namespace kxpanel

#endif
