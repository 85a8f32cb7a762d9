#include "kxsim/timing/precise_timer.h"

#include <algorithm>
#include <stdexcept>
#include <sys/timerfd.h>
#include <unistd.h>

namespace kxsim
{

PreciseTimer::PreciseTimer()
    : m_descriptor(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (m_descriptor < 0)
        throw std::runtime_error("no timer for the simulated controller");
}

PreciseTimer::~PreciseTimer()
{
    close(m_descriptor);
}

// The steady clock is the monotonic one.
void PreciseTimer::set(std::chrono::steady_clock::time_point time)
{
    using namespace std::chrono;
    const auto sinceBoot = duration_cast<nanoseconds>(time.time_since_epoch());
    const auto whole = duration_cast<seconds>(sinceBoot);
    itimerspec alarm = {};
    alarm.it_value.tv_sec = whole.count();
    // All zero would stop it.
    alarm.it_value.tv_nsec = std::max<long>(1, static_cast<long>((sinceBoot - whole).count()));
    timerfd_settime(m_descriptor, TFD_TIMER_ABSTIME, &alarm, nullptr);
}

void PreciseTimer::stop()
{
    const itimerspec never = {};
    timerfd_settime(m_descriptor, 0, &never, nullptr);
}

} // namespace kxsim
