/// Ranges cut into what one write of the driver carries.
#ifndef KX_ADDRESSES_WRITE_PIECES_H
#define KX_ADDRESSES_WRITE_PIECES_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

namespace kx
{

/// Addresses of that type that one write request may cover when it may cover
/// `maxWords` registers. 0 when none fits.
KXRUNTIME_EXPORT int addressesPerWrite(const RegisterType* type, int maxWords);

/// Pieces of at most `most` addresses each (1 or more), none across a jump in the
/// Modbus numbers. A piece of coils is never a multiple of eight long: the driver
/// switches the last eight coils of such a write off, whatever their values. Values of several
/// registers are kept whole as by readPieces().
KXRUNTIME_EXPORT QList<AddressRange> writePieces(const AddressRange& range, int most);

/// `assignment` cut at the pieces of its range.
KXRUNTIME_EXPORT QList<Assignment> writePieces(const Assignment& assignment, int most);

} // namespace kx

#endif
