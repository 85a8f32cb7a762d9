/// How long controllers think between a request and its reply.
#ifndef KX_KXSIM_TIMING_TURNAROUND_H
#define KX_KXSIM_TIMING_TURNAROUND_H

#include "kxsim/timing/duration_text.h"
#include "kxsim/timing/moment.h"

#include <QtCore/QString>

#include <random>

namespace kxsim
{

/// Reads "5ms", or "5..20ms" for a time that differs from reply to reply. False and one
/// line in `*error` when it is no time or range of times, one is longer than 60 s, or the
/// range ends before it begins; `*range` is then untouched.
bool parseTurnaround(const QString& text, DurationRange* range, QString* error);

/// The times of one line, evenly spread over their range, in whole microseconds. The same
/// seed gives the same times.
class Turnaround
{
public:
    Turnaround(const DurationRange& range, quint32 seed) : m_range(range), m_random(seed) {}

    /// From the end of a request to the beginning of its reply.
    Moment next();

private:
    DurationRange m_range;
    std::mt19937 m_random;
};

} // namespace kxsim

#endif
