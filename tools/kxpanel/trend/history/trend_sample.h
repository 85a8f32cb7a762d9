/// What was read of a value, and what several reads in a row came to. Times are milliseconds since
/// 1970 in UTC.
#ifndef KX_KXPANEL_TREND_HISTORY_TREND_SAMPLE_H
#define KX_KXPANEL_TREND_HISTORY_TREND_SAMPLE_H

#include "recording/recorded.h"

#include <cmath>
#include <limits>

namespace kxpanel
{

const qint64 NO_TIME = std::numeric_limits<qint64>::min();

/// A value lasts until the next one, as does a gap.
struct TrendSample {
    qint64 time = NO_TIME; ///< NO_TIME: there is none
    double value = 0;      ///< gapValue(): there is no value from now on

    bool isThere() const { return time != NO_TIME; }
    bool isGap() const { return std::isnan(value); }
    void shift(qint64 milliseconds) { time += isThere() ? milliseconds : 0; }
};

struct TrendRange {
    qint64 from = 0;
    qint64 to = 0; ///< just behind it
};

/// A NaN that says why there is no value.
double gapValue(kx::GapReason reason);
/// One that was read, but is no number.
double notANumber();

/// False of notANumber(); else `*reason` is the gap's.
bool gapReasonOf(double gap, kx::GapReason* reason);

/// Samples in a row, of which these are kept as they were.
struct TrendSpan {
    TrendSample first;
    TrendSample last;
    TrendSample lowest;  ///< of the values; not there when all are gaps
    TrendSample highest; ///< the same
    TrendSample gap;     ///< the first; not there when all are values

    bool isEmpty() const { return !first.isThere(); }
    bool hasValues() const { return lowest.isThere(); }
    bool hasGap() const { return gap.isThere(); }
    /// Takes in one that is later than all.
    void add(const TrendSample& sample);
    void add(const TrendSpan& later);
    void shift(qint64 milliseconds);
};

} // namespace kxpanel

#endif
