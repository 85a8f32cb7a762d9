#include "data/data_areas.h"

#include "driver/tarvelan.h"

namespace
{

_DATA_ newDataArea(int station, const QString& regType, int address)
{
    _DATA_ area = _DATA_();
    area.station = station;
    area.regType = regType;
    area.address = address;
    return area;
}

int findOrCreate(int station, const QString& regType, int address, QList<_DATA_>& list)
{
    const int size = static_cast<int>(list.size());
    for (int i = 0; i < size; ++i) {
        const _DATA_& area = list.at(i);
        if (area.station == station && area.address == address && area.regType == regType)
            return i;
    }
    list.append(newDataArea(station, regType, address));
    return size;
}

} // namespace

int getIndexOfDataArea(int station, QString regType, int address, QList<_DATA_>& list)
{
    return findOrCreate(station, regType, address, list);
}

_DATA_& dataArea(int station, const QString& regType, int address)
{
    return driver.dataAreas[findOrCreate(station, regType, address, driver.dataAreas)];
}
