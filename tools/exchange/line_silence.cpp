#include "exchange/line_silence.h"

namespace kx
{

namespace
{

/// Adapters and gateways keep bytes of one stream back for up to 16 ms.
const qint64 AFTER_NOISE = 20000; // microseconds

} // namespace

void LineSilence::await(qint64 now)
{
    m_awaitedSince = qMax(now, m_since);
}

qint64 LineSilence::least() const
{
    return m_isNoisy ? qMax(m_gap, AFTER_NOISE) : m_gap;
}

qint64 LineSilence::overdueAt() const
{
    return m_awaitedSince + qMax(m_quiet, least()) + m_patience;
}

} // namespace kx
