#include "exchange/lines/line_timing.h"

namespace kx
{

namespace
{

const qint64 MICROSECONDS = 1000000;
const int FASTEST_BAUD_WITH_MEASURED_GAP = 19200;
const qint64 FIXED_GAP = 1750; // microseconds

qint64 roundedUp(qint64 dividend, qint64 divisor)
{
    return (dividend + divisor - 1) / divisor;
}

} // namespace

qint64 LineTiming::transmissionTime(qint64 characters) const
{
    if (baud <= 0)
        return 0;
    return roundedUp(characters * bitsPerCharacter() * MICROSECONDS, baud);
}

qint64 LineTiming::frameGap() const
{
    if (baud <= 0)
        return 0;
    if (baud > FASTEST_BAUD_WITH_MEASURED_GAP)
        return FIXED_GAP;
    return roundedUp(7 * bitsPerCharacter() * MICROSECONDS, 2 * qint64(baud));
}

} // namespace kx
