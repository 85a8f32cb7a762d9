#ifndef KX_KXHOST_WATCH_PIECES_H
#define KX_KXHOST_WATCH_PIECES_H

#include "addresses/address_text.h"

#include <QtCore/QList>

/// Watched ranges cut so that the driver need not, which it would not do: pieces of
/// at most `maxWords` registers, or bits, since the driver joins bits, too, to
/// requests of at most that many. A single 32CV stays whole.
QList<AddressRange> watchPieces(const QList<AddressRange>& ranges, int maxWords);

#endif
