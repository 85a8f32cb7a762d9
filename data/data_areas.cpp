#include "data/data_areas.h"

namespace
{

int searchList(const QList<_DATA_>& list, int station, const QString& regType, int address)
{
    for (int i = 0; i < list.size(); ++i) {
        const _DATA_& area = list.at(i);
        if (area.station == station && area.address == address && area.regType == regType)
            return i;
    }
    return -1;
}

} // namespace

int appendDataArea(QList<_DATA_>& list, int station, const QString& regType, int address)
{
    _DATA_ area = _DATA_();
    area.station = station;
    area.regType = regType;
    area.address = address;
    list.append(area);
    return static_cast<int>(list.size()) - 1;
}

int getIndexOfDataArea(int station, QString regType, int address, QList<_DATA_>& list)
{
    const int found = &list == &driver.dataAreas
                          ? driver.dataAreaIndex->find(list, station, regType, address)
                          : searchList(list, station, regType, address);
    return found >= 0 ? found : appendDataArea(list, station, regType, address);
}

UndisturbedAreas::UndisturbedAreas() : m_before(driver.dataAreaIndex->setUndisturbed(true)) {}

UndisturbedAreas::~UndisturbedAreas()
{
    driver.dataAreaIndex->setUndisturbed(m_before);
}
