#include "exchange/driver_keys.h"

#include "registers/register_types.h"

namespace kx
{

KEY_ADDRESS keyOf(const AddressRange& range)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = range.station;
    key.regType = QString::fromLatin1(range.type->name);
    key.address = range.address;
    key.bitIndex = range.type->registerClass == BIT_CLASS ? -1 : 0; // -1: counted in bits
    key.count = range.driverCount();
    return key;
}

} // namespace kx
