/// What was read of a value, and what several reads in a row came to. Times are milliseconds since
/// 1970 in UTC.
#ifndef KX_KXPANEL_TREND_HISTORY_TREND_SAMPLE_H
#define KX_KXPANEL_TREND_HISTORY_TREND_SAMPLE_H

#include "recording/recorded.h"

#include <cmath>

namespace kxpanel
{

/// Before all times, which may be as late as the year 9999.
const qint64 NO_TIME = -(qint64(1) << 48);

/// A value lasts until the next one, as does a gap.
class TrendSample
{
public:
    /// The most that fine() tells, either way.
    static constexpr int MOST_FINE = (1 << 14) - 1;
    /// fine() of a number that has more digits than can be told.
    static constexpr int ROUNDED = -MOST_FINE - 1;

    TrendSample() = default;
    TrendSample(qint64 time, double number, int fine = 0)
        : value(number), m_place(placeOf(time) << FINE_BITS | quint64(fine - ROUNDED))
    {
    }

    double value = 0; ///< gapValue(): there is no value from now on

    /// NO_TIME: there is none.
    qint64 time() const { return static_cast<qint64>(m_place >> FINE_BITS) + NO_TIME; }
    void setTime(qint64 time) { *this = TrendSample(time, value, fine()); }
    /// What a number of many digits is above `value`, in its last digit; else 0, or ROUNDED.
    int fine() const { return static_cast<int>(m_place & FINE_MASK) + ROUNDED; }

    bool isRounded() const { return fine() == ROUNDED; }
    bool isThere() const { return m_place >> FINE_BITS != 0; }
    bool isGap() const { return std::isnan(value); }
    /// Of two that are no gaps.
    bool isBelow(const TrendSample& other) const
    {
        const bool isFinerBelow = (m_place & FINE_MASK) < (other.m_place & FINE_MASK);
        return value < other.value || (value == other.value && isFinerBelow);
    }
    /// The same value, or gap.
    bool isSame(const TrendSample& other) const;
    void shift(qint64 milliseconds)
    {
        if (isThere())
            setTime(time() + milliseconds);
    }

private:
    static constexpr int FINE_BITS = 15; // beside the 49 of a time, so that it takes no memory
    static constexpr quint64 FINE_MASK = (quint64(1) << FINE_BITS) - 1;

    static quint64 placeOf(qint64 time)
    {
        return static_cast<quint64>(qBound(NO_TIME, time, -NO_TIME - 1) - NO_TIME);
    }

    quint64 m_place =
        quint64(-ROUNDED); ///< milliseconds since NO_TIME, and fine() in the lowest bits
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
