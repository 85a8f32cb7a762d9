/// How long a character takes on a serial line.
#ifndef KX_KXSIM_TIMING_PACE_H
#define KX_KXSIM_TIMING_PACE_H

#include "kxsim/timing/moment.h"

#include <QtCore/QString>

namespace kxsim
{

struct Pace {
    int baud = 0;              ///< bits per second; 0: bytes take no time
    int bitsPerCharacter = 10; ///< start bit, 8 data bits, parity bit if any, stop bits

    /// The characters' time, rounded down to whole nanoseconds once for all of them.
    Moment timeOf(qint64 characters) const;
};

/// Reads BAUD[,FORMAT], such as "9600" or "19200,8E1": 50 to 4000000 bits per second; 8
/// data bits, parity N, E or O in either case, 1 or 2 stop bits (8N1). False and one line
/// in `*error` for anything else; `*pace` is then untouched.
bool parsePace(const QString& text, Pace* pace, QString* error);

} // namespace kxsim

#endif
