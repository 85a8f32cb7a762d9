#ifndef KX_ADDRESSES_WATCH_PIECES_H
#define KX_ADDRESSES_WATCH_PIECES_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

namespace kx
{

/// Watched ranges cut so that the driver need not, which it would not do: pieces of
/// at most `maxWords` registers, or bits, which the driver counts alike. A single 32CV stays whole,
/// and so does a value of several registers.
///
/// The driver joins SM on both sides of SM256, whose coils lie apart, when they fit one
/// request. Where both sides of a station are watched, the first piece past SM255 is made
/// so long that they do not: it covers bits that were not asked for, up to SM511 at most.
/// @param maxWords 1 to 256: one side of SM; Modbus allows 125 registers
KXRUNTIME_EXPORT QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords);

} // namespace kx

#endif
