/// Ranges cut into what one request of the driver reaches.
///
/// The driver would cut long ranges itself, but it counts 32CV pieces in registers
/// although 32CV addresses count values, and it does not see where the second
/// Modbus range of M, SM or SD begins. So the runtime cuts, and the driver finds
/// nothing left to cut.
#ifndef KX_ADDRESSES_READ_PIECES_H
#define KX_ADDRESSES_READ_PIECES_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

namespace kx
{

/// Addresses of that type that one read request may cover when it may cover
/// `maxWords` registers: eight coils for each register. 0 when none fits.
KXRUNTIME_EXPORT int addressesPerRead(const RegisterType* type, int maxWords);

/// Why addressesPerRead() is 0, and what to do: "a 32CV takes 2 registers; raise --max-words,
/// which is 1".
KXRUNTIME_EXPORT QString tooLongText(const RegisterType* type, int maxWords);

/// Pieces of at most `most` addresses each (1 or more), none across a jump in the
/// Modbus numbers. They keep the range's station and width: a value that is longer is a piece of
/// its own.
/// @param range each of its values lies in one run of Modbus numbers
KXRUNTIME_EXPORT QList<AddressRange> readPieces(const AddressRange& range, int most);

} // namespace kx

#endif
