/// How long characters occupy a serial line.
#ifndef KX_EXCHANGE_LINES_LINE_TIMING_H
#define KX_EXCHANGE_LINES_LINE_TIMING_H

#include "addresses/export.h"

#include <QtCore/QtGlobal>

namespace kx
{

/// The character format of a line; a baud rate of 0 means a network, on which
/// characters take no time and no gap is kept.
struct KXRUNTIME_EXPORT LineTiming {
    int baud = 9600;
    int dataBits = 8;
    int parityBits = 0; ///< 0 or 1
    int stopBits = 1;

    /// One start bit, then data, parity and stop bits.
    int bitsPerCharacter() const { return 1 + dataBits + parityBits + stopBits; }

    /// Time that so many characters occupy the line, in microseconds, rounded up.
    qint64 transmissionTime(qint64 characters) const;

    /// Silence that ends a frame, in microseconds: 3.5 characters, and 1750 above
    /// 19200 baud, where 3.5 characters would be too short to tell.
    qint64 frameGap() const;
};

} // namespace kx

#endif
