#ifndef KX_EXCHANGE_LEAD_TIME_H
#define KX_EXCHANGE_LEAD_TIME_H

#include <QtCore/QtGlobal>

namespace kx
{

/// How long before a moment a process is to be woken, so that it is up by then: some tens of
/// microseconds where the cores are busy, hundreds where they have fallen asleep. Learned from how
/// late it got up, and at most what may be waited awake. Times are nanoseconds.
class LeadTime
{
public:
    static constexpr qint64 SHORTEST = 30000;
    static constexpr qint64 LONGEST = 250000;

    qint64 value() const { return m_value; }
    /// It got up so long after the time it was woken for. More counts at once, since a request
    /// that is late costs the line time; less bit by bit.
    void learn(qint64 late);

private:
    qint64 m_value = SHORTEST;
};

} // namespace kx

#endif
