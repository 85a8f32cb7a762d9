/// A clock of its own in the time of another, since a clock wakes one at a time.
#ifndef KX_TESTS_TOOLS_PANEL_SEQUENCE_SECOND_CLOCK_H
#define KX_TESTS_TOOLS_PANEL_SEQUENCE_SECOND_CLOCK_H

#include "tools/exchange/virtual_clock.h"

#include <QtCore/QPointer>

namespace kx
{

class SecondClock : public LoopClock
{
public:
    explicit SecondClock(VirtualClock* clock) : m_clock(clock) {}

    qint64 now() const override { return m_clock->now(); }
    void wakeAfter(qint64 microseconds) override
    {
        const int asked = ++m_asked;
        m_clock->after(microseconds + late, [self = QPointer<SecondClock>(this), asked] {
            if (self && self->m_asked == asked)
                emit self->woken();
        });
    }
    void cancel() override { ++m_asked; }

    qint64 late = 0; ///< microseconds that it wakes late, as in a busy program

private:
    VirtualClock* m_clock;
    int m_asked = 0; ///< what was asked before this is over
};

} // namespace kx

#endif
