#ifndef KX_KXPANEL_LINE_CYCLE_MEASURED_CYCLE_H
#define KX_KXPANEL_LINE_CYCLE_MEASURED_CYCLE_H

#include "kxpanel/line/cycle/cycle_marks.h"

#include <deque>

namespace kxpanel
{

/// How long cycles take: on average over the latest three, or over those of two seconds, which
/// clocks of whole milliseconds and tags with intervals need.
class MeasuredCycle
{
public:
    void add(const Exchange& exchange);
    /// Another list, or other lengths: what was measured before tells nothing of it.
    void forget();
    /// Another line.
    void clear() { *this = MeasuredCycle(); }

    /// Microseconds; 0: none is over.
    qint64 average() const;

private:
    CycleMarks m_marks;
    std::deque<qint64> m_begins; ///< milliseconds since 1970
};

} // namespace kxpanel

#endif
