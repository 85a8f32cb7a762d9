/// An alarm that poll() wakes up for, exact to some microseconds; poll's own time-out has
/// whole milliseconds, and the kernel lets longer ones run late.
#ifndef KX_KXSIM_TIMING_PRECISE_TIMER_H
#define KX_KXSIM_TIMING_PRECISE_TIMER_H

#include <chrono>

namespace kxsim
{

class PreciseTimer
{
public:
    /// Throws std::runtime_error when the system has no timer left.
    PreciseTimer();
    ~PreciseTimer();
    PreciseTimer(const PreciseTimer&) = delete;
    PreciseTimer& operator=(const PreciseTimer&) = delete;

    /// Readable from the set time on.
    int descriptor() const { return m_descriptor; }

    /// Forgets what was set before. A time that is over rings at once.
    void set(std::chrono::steady_clock::time_point time);

    /// Rings no more.
    void stop();

private:
    int m_descriptor;
};

} // namespace kxsim

#endif
