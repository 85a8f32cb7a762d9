#ifndef KX_KXPANEL_HEALTH_FAULT_COUNT_H
#define KX_KXPANEL_HEALTH_FAULT_COUNT_H

#include "kxpanel/machine/machine_events.h"

namespace kxpanel
{

/// What was thrown away, waited for and missed on the line.
struct LineFaults {
    kx::ThrownAway thrownAway;
    qint64 heldBack = 0; ///< requests that waited for a late reply to come or to expire
    qint64 reopened = 0; ///< times that a lost line was opened again
    qint64 missed = 0;   ///< times that a tag with an interval was not read within it
};

/// Adds up what runs count, each of which begins at 0, from any moment on.
class FaultCount
{
public:
    /// What a run has counted so far. Less time than before tells that it is another one.
    void take(const kx::WatchSummary& summary);
    /// What is taken next is another run's.
    void endRun() { m_hasEnded = true; }
    /// Begins at 0.
    void reset();

    LineFaults faults() const;

private:
    LineFaults m_earlier;     ///< of runs that are over
    kx::WatchSummary m_begin; ///< of this one, when it was reset
    kx::WatchSummary m_now;   ///< as of take()
    bool m_hasEnded = false;
};

} // namespace kxpanel

#endif
