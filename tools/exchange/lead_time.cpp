#include "exchange/lead_time.h"

namespace kx
{

namespace
{

// What one wake-up counts for: a half of what it was later, a sixteenth of what it was earlier.
const qint64 PART_OF_MORE = 2;
const qint64 PART_OF_LESS = 16;

} // namespace

void LeadTime::learn(qint64 late)
{
    const qint64 difference = qBound(SHORTEST, late, LONGEST) - m_value;
    m_value += difference / (difference > 0 ? PART_OF_MORE : PART_OF_LESS);
}

} // namespace kx
