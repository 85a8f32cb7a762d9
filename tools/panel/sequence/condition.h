#ifndef KX_PANEL_SEQUENCE_CONDITION_H
#define KX_PANEL_SEQUENCE_CONDITION_H

#include "panel/sequence/operand.h"
#include "panel/values/decimal.h"

namespace kx
{

enum class Comparison { Equal, NotEqual, Less, AtMost, Greater, AtLeast, Within };

/// The comparison of a sign, = != < <= > or >=, or of the word in; false when it is none.
bool comparisonOf(const QString& typed, Comparison* comparison);

/// What a value is expected to be. Values are compared as they are shown, as decimal numbers of any
/// length, so that no rounding decides.
struct Condition {
    QString text; ///< as it was typed: "> 4.5"
    Comparison comparison = Comparison::Equal;
    QString shown; ///< of Equal and NotEqual: the value expected
    Decimal low;   ///< of the others: what is compared with; of Within, the lowest
    Decimal high;  ///< of Within: the highest
};

/// Whether a value that is shown so is as expected. Infinities lie beyond all numbers; what is no
/// number is never below, above or within anything, and unequal to all but its own text.
bool isMet(const Condition& condition, const QString& shown);

} // namespace kx

#endif
