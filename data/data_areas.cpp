#include "data/data_areas.h"

#include "driver/data_area_index.h"
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

int searchList(const QList<_DATA_>& list, int station, const QString& regType, int address)
{
    for (int i = 0; i < list.size(); ++i) {
        const _DATA_& area = list.at(i);
        if (area.station == station && area.address == address && area.regType == regType)
            return i;
    }
    return -1;
}

int findOrCreate(int station, const QString& regType, int address, QList<_DATA_>& list)
{
    const int found = &list == &driver.dataAreas
                          ? driver.dataAreaIndex->find(list, station, regType, address)
                          : searchList(list, station, regType, address);
    if (found >= 0)
        return found;
    list.append(newDataArea(station, regType, address));
    return static_cast<int>(list.size()) - 1;
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

UndisturbedAreas::UndisturbedAreas() : m_before(driver.dataAreaIndex->setUndisturbed(true)) {}

UndisturbedAreas::~UndisturbedAreas()
{
    driver.dataAreaIndex->setUndisturbed(m_before);
}
