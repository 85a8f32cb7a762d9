#include "kxpanel/line/cycle/cycle_marks.h"

namespace kxpanel
{

bool CycleMarks::begins(const Exchange& exchange)
{
    const bool isPoll = exchange.kind == CYCLIC_READ_JOB && !exchange.wasRepeated;
    const bool begins = m_isNext && isPoll;
    m_isNext = exchange.endsCycle || (m_isNext && !begins);
    return begins;
}

} // namespace kxpanel
