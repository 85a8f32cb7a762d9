#ifndef KX_EXCHANGE_DRIVER_KEYS_H
#define KX_EXCHANGE_DRIVER_KEYS_H

#include "addresses/address_text.h"

#include "driver/records.h"

namespace kx
{

/// The range as the driver takes it, for watch lists and one-off reads. The range must have a
/// type and name its station.
KEY_ADDRESS keyOf(const AddressRange& range);

} // namespace kx

#endif
