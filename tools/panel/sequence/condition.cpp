#include "panel/sequence/condition.h"

namespace kx
{

namespace
{

struct ComparisonName {
    const char* name;
    Comparison comparison;
};

const ComparisonName COMPARISONS[] = {
    {"=", Comparison::Equal},   {"!=", Comparison::NotEqual}, {"<", Comparison::Less},
    {"<=", Comparison::AtMost}, {">", Comparison::Greater},   {">=", Comparison::AtLeast},
    {"in", Comparison::Within},
};

/// A number, or an infinity, of which only the sign counts.
struct Measured {
    Decimal number;
    int infinity = 0; ///< -1, 0, 1
};

bool measure(const QString& shown, Measured* measured)
{
    if (shown == QLatin1String("inf") || shown == QLatin1String("-inf")) {
        measured->infinity = shown.startsWith(QLatin1Char('-')) ? -1 : 1;
        return true;
    }
    return Decimal::parse(shown, &measured->number);
}

int compared(const Measured& measured, const Decimal& with)
{
    return measured.infinity != 0 ? measured.infinity : measured.number.compare(with);
}

bool isEqual(const QString& expected, const QString& shown)
{
    if (expected == shown)
        return true;
    Decimal one;
    Decimal other;
    return Decimal::parse(expected, &one) && Decimal::parse(shown, &other)
           && one.compare(other) == 0;
}

} // namespace

bool comparisonOf(const QString& typed, Comparison* comparison)
{
    for (const ComparisonName& known : COMPARISONS) {
        if (typed != QLatin1String(known.name))
            continue;
        *comparison = known.comparison;
        return true;
    }
    return false;
}

bool isMet(const Condition& condition, const QString& shown)
{
    if (condition.comparison == Comparison::Equal || condition.comparison == Comparison::NotEqual)
        return isEqual(condition.shown, shown) == (condition.comparison == Comparison::Equal);
    Measured measured;
    if (!measure(shown, &measured))
        return false;
    const int side = compared(measured, condition.low);
    switch (condition.comparison) {
    case Comparison::Less:
        return side < 0;
    case Comparison::AtMost:
        return side <= 0;
    case Comparison::Greater:
        return side > 0;
    case Comparison::AtLeast:
        return side >= 0;
    default:
        return side >= 0 && compared(measured, condition.high) <= 0;
    }
}

} // namespace kx
