#include "kxsim/programme/wave.h"

#include <cmath>

namespace kxsim
{

namespace
{

const double WHOLE_TURN = 6.283185307179586;

// Products of a 32-bit range and a day's milliseconds stay within 61 bits.
qint64 roundedQuotient(qint64 dividend, qint64 divisor)
{
    const qint64 half = dividend < 0 ? -divisor / 2 : divisor / 2;
    return (dividend + half) / divisor;
}

qint64 rampAt(qint64 first, qint64 last, qint64 phase, qint64 period)
{
    const qint64 values = std::abs(last - first) + 1;
    const qint64 passed = values * phase / period;
    return last < first ? first - passed : first + passed;
}

qint64 triangleAt(qint64 first, qint64 last, qint64 phase, qint64 period)
{
    const qint64 way = 2 * (2 * phase <= period ? phase : period - phase);
    return first + roundedQuotient((last - first) * way, period);
}

qint64 sineAt(qint64 first, qint64 last, qint64 phase, qint64 period)
{
    const double middle = static_cast<double>(first + last) / 2;
    const double swing = static_cast<double>(last - first) / 2;
    const double angle = WHOLE_TURN * static_cast<double>(phase) / static_cast<double>(period);
    return std::llround(middle + swing * std::sin(angle));
}

} // namespace

qint64 valueAt(const Wave& wave, Moment now)
{
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now);
    const qint64 period = wave.period.count();
    const qint64 phase = passed.count() % period;
    switch (wave.shape) {
    case WaveShape::Ramp:
        return rampAt(wave.first, wave.last, phase, period);
    case WaveShape::Triangle:
        return triangleAt(wave.first, wave.last, phase, period);
    case WaveShape::Sine:
        return sineAt(wave.first, wave.last, phase, period);
    case WaveShape::Square:
        break;
    }
    return 2 * phase < period ? wave.first : wave.last;
}

} // namespace kxsim
