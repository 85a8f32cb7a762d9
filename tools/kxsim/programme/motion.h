/// Moves some addresses of a controller's memory so that there is something to
/// see, in steps of 100 ms:
///   D0      counts up by 1
///   D1      sine from 0 to 4095, one wave in 20 s
///   M0, Y0  change every second, one on while the other is off
///   32CV200 counts up by 7, crossing into its high word after 8 s
///   TV0, T0 a timer: TV0 counts to 50, then T0 is on for 1 s
#ifndef KX_KXSIM_PROGRAMME_MOTION_H
#define KX_KXSIM_PROGRAMME_MOTION_H

#include "kxsim/memory/controller_memory.h"

namespace kxsim
{

class Motion
{
public:
    /// Puts the values of time 0 into `memory`, which must outlive the motion.
    explicit Motion(ControllerMemory* memory);

    /// Takes all steps up to `milliseconds` since time 0.
    void advanceTo(qint64 milliseconds);

private:
    void step();
    void showPhases();

    ControllerMemory* m_memory;
    qint64 m_steps = 0;
};

} // namespace kxsim

#endif
