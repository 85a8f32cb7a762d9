#include "addresses/station_text.h"

#include "addresses/digits.h"

namespace kx
{

bool parseStation(const QString& digits, int* station)
{
    bool isNumber = false;
    const int number = hasOnlyDigits(digits, 10) ? digits.toInt(&isNumber) : 0;
    if (!isNumber || number < LOWEST_STATION || number > HIGHEST_STATION)
        return false;
    *station = number;
    return true;
}

} // namespace kx
