#include "planning/monitor_flags.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/register_types.h"

namespace
{

const int WATCHED_AS_WHOLE_BIT = 0;

void markBit(int station, const QString& regType, int address)
{
    _DATA_& group = dataArea(station, regType, bitGroupStart(address));
    group.bitMonitorMask = _setBitValue(group.bitMonitorMask, bitInGroup(address), 1);
}

void markWhole(int station, const QString& regType, int address)
{
    _DATA_& area = dataArea(station, regType, address);
    area.monitorFlags = _setBitValue(area.monitorFlags, WATCHED_AS_WHOLE_BIT, 1);
}

} // namespace

int _setBitValue(int value, int bit, int set)
{
    if (bit < 0 || bit > 31)
        return value;
    const quint32 mask = 1u << bit;
    const quint32 bits = static_cast<quint32>(value);
    return static_cast<int>(set ? bits | mask : bits & ~mask);
}

int _setDataAreaMonitorFlag(int station, QString regType, int address, int count)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type)
        return 0;
    const int addresses = count / registersPerAddress(type);
    const UndisturbedAreas undisturbed;
    for (int i = 0; i < addresses; ++i) {
        if (type->registerClass == BIT_CLASS)
            markBit(station, regType, wrapAdd(address, i));
        else
            markWhole(station, regType, wrapAdd(address, i));
    }
    return 0;
}

void clearMonitorFlags()
{
    for (int i = 0; i < driver.dataAreas.size(); ++i) {
        _DATA_& area = driver.dataAreas[i];
        area.monitorFlags = 0;
        area.bitMonitorMask = 0;
    }
}
