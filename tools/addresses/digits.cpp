#include "addresses/digits.h"

namespace kx
{

bool hasOnlyDigits(const QString& text, int radix)
{
    for (const QChar digit : text) {
        const auto value = QLatin1String("0123456789abcdef").indexOf(digit.toLower());
        if (value < 0 || value >= radix)
            return false;
    }
    return !text.isEmpty();
}

} // namespace kx
