#include "kxpanel/trend/history/trend_sample.h"

#include <cstring>

namespace kxpanel
{

namespace
{

// A quiet NaN keeps its lowest bits wherever it is copied.
const quint64 QUIET_NAN = 0x7FF8000000000000;
const quint64 REASON_BITS = 0xFF;
const quint64 NOT_A_NUMBER = 0xFF;

double nanWith(quint64 bits)
{
    const quint64 all = QUIET_NAN | bits;
    double value = 0;
    std::memcpy(&value, &all, sizeof value);
    return value;
}

} // namespace

double gapValue(kx::GapReason reason)
{
    return nanWith(static_cast<quint64>(reason));
}

double notANumber()
{
    return nanWith(NOT_A_NUMBER);
}

bool TrendSample::isSame(const TrendSample& other) const
{
    quint64 mine = 0; // of gaps, too, which never equal
    quint64 others = 0;
    std::memcpy(&mine, &value, sizeof mine);
    std::memcpy(&others, &other.value, sizeof others);
    return mine == others && fine() == other.fine();
}

bool gapReasonOf(double gap, kx::GapReason* reason)
{
    quint64 bits = 0;
    std::memcpy(&bits, &gap, sizeof bits);
    bits &= REASON_BITS;
    if (bits == NOT_A_NUMBER)
        return false;
    *reason = static_cast<kx::GapReason>(bits);
    return true;
}

void TrendSpan::add(const TrendSample& sample)
{
    if (isEmpty())
        first = sample;
    last = sample;
    if (sample.isGap()) {
        if (!hasGap())
            gap = sample;
        return;
    }
    if (!hasValues() || sample.isBelow(lowest))
        lowest = sample;
    if (!highest.isThere() || highest.isBelow(sample))
        highest = sample;
}

void TrendSpan::add(const TrendSpan& later)
{
    if (later.isEmpty())
        return;
    if (isEmpty()) {
        *this = later;
        return;
    }
    last = later.last;
    if (!hasGap())
        gap = later.gap;
    if (!later.hasValues())
        return;
    if (!hasValues() || later.lowest.isBelow(lowest))
        lowest = later.lowest;
    if (!highest.isThere() || highest.isBelow(later.highest))
        highest = later.highest;
}

void TrendSpan::shift(qint64 milliseconds)
{
    for (TrendSample* const sample : {&first, &last, &lowest, &highest, &gap})
        sample->shift(milliseconds);
}

} // namespace kxpanel
