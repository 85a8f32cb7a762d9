/// Values that change by themselves as a function of time: ramps, triangles, sines and
/// squares. Pure functions.
#ifndef KX_KXSIM_PROGRAMME_WAVE_H
#define KX_KXSIM_PROGRAMME_WAVE_H

#include "addresses/address_text.h"
#include "kxsim/timing/moment.h"

#include <QtCore/QString>

#include <chrono>

namespace kxsim
{

enum class WaveShape {
    Ramp,     ///< each value of the range for as long as any other, then the first again
    Triangle, ///< straight to the last value in half a period, and straight back
    Sine,     ///< from the middle, first towards the last value
    Square    ///< the first value for half a period, the last for the other half
};

struct Wave {
    kx::AddressRange range; ///< all its addresses have the same value; at all stations
                            ///< unless it names one
    WaveShape shape = WaveShape::Ramp;
    qint64 first = 0; ///< may be above `last`
    qint64 last = 0;
    std::chrono::milliseconds period{1000}; ///< 1 ms to 24 h
};

/// The value at a time, rounded to the nearest; it changes at whole milliseconds.
qint64 valueAt(const Wave& wave, Moment now);

/// Reads ADDRESS=[SHAPE:]FIRST..LAST/PERIOD, such as D10=0..4095/20s (a ramp),
/// D11=sine:-100..100/1min or M0=0..1/2s (bits are squares). False and one line in
/// `*error` when it is no such text, a value does not fit its type, or the period is not
/// 1 ms to 24 h in whole milliseconds; `*wave` is then untouched.
bool parseWave(const QString& text, Wave* wave, QString* error);

} // namespace kxsim

#endif
