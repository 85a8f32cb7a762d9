#ifndef KX_KXSIM_TIMING_MOMENT_H
#define KX_KXSIM_TIMING_MOMENT_H

#include <chrono>

namespace kxsim
{

/// A time since the start of a simulation, or between two.
using Moment = std::chrono::nanoseconds;

} // namespace kxsim

#endif
