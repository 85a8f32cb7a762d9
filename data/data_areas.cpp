#include "data/data_areas.h"

#include "registers/type_names.h"

namespace
{

// Records; searching so few is exact whatever was done to the list from outside.
const int SHORT_LIST = 256;

} // namespace

int appendDataArea(QList<_DATA_>& list, int station, const QString& regType, int address)
{
    _DATA_ area = _DATA_();
    area.station = station;
    const RegisterType* const type = findRegisterType(regType);
    area.regType = type ? typeNames->of(type) : regType;
    area.address = address;
    list.append(area);
    return static_cast<int>(list.size()) - 1;
}

int getIndexOfDataArea(int station, QString regType, int address, QList<_DATA_>& list)
{
    const bool isIndexed = &list == &driver.dataAreas && list.size() > SHORT_LIST;
    const int found = isIndexed ? dataAreaIndex->find(list, station, regType, address)
                                : DataAreaIndex::findInList(list, station, regType, address);
    return found >= 0 ? found : appendDataArea(list, station, regType, address);
}

UndisturbedAreas::UndisturbedAreas() : m_before(dataAreaIndex->setUndisturbed(true)) {}

UndisturbedAreas::~UndisturbedAreas()
{
    dataAreaIndex->setUndisturbed(m_before);
}
