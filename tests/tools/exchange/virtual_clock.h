/// Time that passes only from one event to the next, so that runs take no longer than
/// their work and give the same result on every machine.
#ifndef KX_TESTS_TOOLS_EXCHANGE_VIRTUAL_CLOCK_H
#define KX_TESTS_TOOLS_EXCHANGE_VIRTUAL_CLOCK_H

#include "exchange/loop_clock.h"

#include <functional>
#include <map>

namespace kx
{

class VirtualClock : public LoopClock
{
public:
    qint64 now() const override { return m_now; }
    void wakeAfter(qint64 microseconds) override;
    void cancel() override { m_wakesAt = NEVER; }

    /// Does `event` after so many microseconds; events of one moment in order.
    void after(qint64 microseconds, const std::function<void()>& event);

    /// Goes to the next event and does it; false when there is none.
    bool step();
    /// Does all events of the next so many microseconds.
    void pass(qint64 microseconds);

private:
    static const qint64 NEVER = -1;

    qint64 nextAt() const;

    qint64 m_now = 0;
    qint64 m_wakesAt = NEVER;
    std::multimap<qint64, std::function<void()>> m_events;
};

} // namespace kx

#endif
