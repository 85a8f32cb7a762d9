#include "registers/address_weight.h"

#include "driver/tarvelan.h"

namespace
{

// More than the highest address of any type, so types never overlap.
const unsigned int WEIGHT_OF_TYPE = 65535;
const unsigned int TYPES_PER_STATION = 5;

} // namespace

int registerTypePosition(const QString& regType)
{
    return static_cast<int>(driver.regNames.indexOf(regType)) + 1;
}

unsigned int addressWeight(int station, int position, int address)
{
    const unsigned int group = TYPES_PER_STATION * static_cast<unsigned int>(station)
                               + static_cast<unsigned int>(position);
    return WEIGHT_OF_TYPE * group + static_cast<unsigned int>(address);
}

unsigned int getRegAddressWeight(int station, QString regType, int addr, int flag)
{
    Q_UNUSED(flag);
    return addressWeight(station, registerTypePosition(regType), addr);
}
