/// Times as people type them: 800us, 5ms, 1.5s, 2min, 1h.
#ifndef KX_KXSIM_TIMING_DURATION_TEXT_H
#define KX_KXSIM_TIMING_DURATION_TEXT_H

#include <QtCore/QString>

#include <chrono>

namespace kxsim
{

/// Reads a number, whole or with a decimal point, and its unit: us, ms, s, min or h. 0
/// needs its unit, too. False when it is no such text, not a whole number of
/// microseconds, or longer than 24 hours; `*duration` is then untouched.
bool parseDuration(const QString& text, std::chrono::microseconds* duration);

struct DurationRange {
    std::chrono::microseconds from{0};
    std::chrono::microseconds to{0};
};

/// Reads "5ms..20ms"; a unit may be left out at the first when both have the same:
/// "5..20ms". False when it is no such text; how the two compare is not looked at.
bool parseDurationRange(const QString& text, DurationRange* range);

} // namespace kxsim

#endif
