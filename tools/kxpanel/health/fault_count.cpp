#include "kxpanel/health/fault_count.h"

namespace kxpanel
{

void FaultCount::take(const kx::WatchSummary& summary)
{
    if (m_hasEnded || summary.elapsed < m_now.elapsed) {
        m_earlier = faults();
        m_begin = kx::WatchSummary();
        m_hasEnded = false;
    }
    m_now = summary;
}

void FaultCount::reset()
{
    m_earlier = LineFaults();
    m_begin = m_now;
}

LineFaults FaultCount::faults() const
{
    const kx::Statistics& begin = m_begin.statistics;
    const kx::Statistics& now = m_now.statistics;
    LineFaults faults = m_earlier;
    faults.thrownAway.foreign += now.thrownAway.foreign - begin.thrownAway.foreign;
    faults.thrownAway.late += now.thrownAway.late - begin.thrownAway.late;
    faults.thrownAway.duplicates += now.thrownAway.duplicates - begin.thrownAway.duplicates;
    faults.thrownAway.echoes += now.thrownAway.echoes - begin.thrownAway.echoes;
    faults.thrownAway.bytes += now.thrownAway.bytes - begin.thrownAway.bytes;
    faults.heldBack += now.heldBack - begin.heldBack;
    faults.reopened += now.reopened - begin.reopened;
    faults.missed += m_now.missed - m_begin.missed;
    return faults;
}

} // namespace kxpanel
