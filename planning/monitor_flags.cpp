#include "planning/monitor_flags.h"

#include "data/data_areas.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

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
    const UndisturbedAreas undisturbed;
    if (const RegisterType* const type = findRegisterType(regType))
        markWatched(type, station, address, count);
    return 0;
}

void markWatched(const RegisterType* type, int station, int address, int count)
{
    const QString& name = typeNames->of(type);
    const int addresses = count / registersPerAddress(type);
    for (int i = 0; i < addresses; ++i) {
        if (type->registerClass == BIT_CLASS)
            markBit(station, name, wrapAdd(address, i));
        else
            markWhole(station, name, wrapAdd(address, i));
    }
}

void clearMonitorFlags()
{
    for (int i = 0; i < driver.dataAreas.size(); ++i) {
        _DATA_& area = driver.dataAreas[i];
        area.monitorFlags = 0;
        area.bitMonitorMask = 0;
    }
}
