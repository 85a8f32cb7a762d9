#ifndef KX_ADDRESSES_WATCH_PIECES_H
#define KX_ADDRESSES_WATCH_PIECES_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

namespace kx
{

/// Watched ranges cut so that the driver need not, which it would not do: pieces of
/// at most `maxWords` registers, or `maxBits` bits. A single 32CV stays whole. The driver joins
/// bits, too, to requests of at most `maxWords`, and sends a longer piece by itself.
///
/// The driver joins SM on both sides of SM256, whose coils lie apart, when they fit one
/// request. Where both sides of a station are watched, the first piece past SM255 is made
/// so long that they do not: it covers bits that were not asked for, up to SM511 at most.
/// @param maxWords 1 to 256: one side of SM; Modbus allows 125 registers
/// @param maxBits  Modbus allows 2000
KXRUNTIME_EXPORT QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords,
                                                 int maxBits);

/// The same with as many bits as registers.
inline QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords)
{
    return watchPieces(ranges, maxWords, maxWords);
}

} // namespace kx

#endif
