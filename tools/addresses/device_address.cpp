#include "addresses/device_address.h"

#include "addresses/address_text.h"
#include "registers/register_types.h"

#include <algorithm>

namespace kx
{

namespace
{

/// Looks in the addresses first to last of one Modbus range, in which numbers grow with
/// the address.
bool findIn(const RegisterType* type, int first, int last, int number, DeviceAddress* found)
{
    int lowest = first;
    int highest = last;
    while (lowest < highest) {
        const int middle = highest - (highest - lowest) / 2;
        if (modbusNumber(type, middle) <= number)
            lowest = middle;
        else
            highest = middle - 1;
    }
    const int part = number - modbusNumber(type, lowest);
    if (first > last || part < 0 || part >= registersPerAddress(type))
        return false;
    *found = {type, lowest, part};
    return true;
}

DeviceAddress find(bool isCoil, int number)
{
    DeviceAddress found;
    for (const RegisterType& row : REGISTER_TYPES) {
        const RegisterType* const type = findRegisterType(QString::fromLatin1(row.name));
        if ((type->registerClass == BIT_CLASS) != isCoil)
            continue;
        const int last = highestAddress(type);
        if (findIn(type, type->lowestAddress, std::min(type->split - 1, last), number, &found)
            || findIn(type, std::max(type->split, type->lowestAddress), last, number, &found))
            break;
    }
    return found;
}

} // namespace

DeviceAddress deviceAddressOfCoil(int number)
{
    return find(true, number);
}

DeviceAddress deviceAddressOfRegister(int number)
{
    return find(false, number);
}

} // namespace kx
