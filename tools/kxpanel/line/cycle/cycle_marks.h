#ifndef KX_KXPANEL_LINE_CYCLE_CYCLE_MARKS_H
#define KX_KXPANEL_LINE_CYCLE_CYCLE_MARKS_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// Tells with which polls a cycle begins: the first one of a line, and the first after each end of
/// a cycle.
class CycleMarks
{
public:
    /// @return a cycle begins with the exchange
    bool begins(const Exchange& exchange);
    /// What is polled is another: until a cycle has ended, none has begun.
    void forget() { m_isNext = false; }

private:
    bool m_isNext = true; ///< the next poll begins one
};

} // namespace kxpanel

#endif
