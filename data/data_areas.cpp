#include "data/data_areas.h"

#include "driver/clear_data_areas.h"
#include "driver/value_change.h"
#include "registers/type_names.h"

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
    if (&list == &driver.dataAreas) {
        const UndisturbedAreas undisturbed; // while appending, too: a shared list would be copied
        return indexOfArea(station, regType, address);
    }
    const int found = DataAreaIndex::findInList(list, station, regType, address);
    return found >= 0 ? found : appendDataArea(list, station, regType, address);
}

UndisturbedAreas::UndisturbedAreas() : m_isOutermost(!dataAreaIndex->isInHand())
{
    if (m_isOutermost)
        dataAreaIndex->takeUp(driver.dataAreas);
}

UndisturbedAreas::~UndisturbedAreas()
{
    // Not in hand any more: the value-change function threw.
    if (m_isOutermost && dataAreaIndex->isInHand())
        dataAreaIndex->letGo(driver.dataAreas);
}

void clearDataAreas()
{
    const UndisturbedAreas undisturbed;
    driver.dataAreas.clear();
    dataAreaIndex->reset();
}

void tellRuntime(int link, int station, const QString& name, int address)
{
    const bool isInHand = dataAreaIndex->isInHand();
    if (isInHand)
        dataAreaIndex->letGo(driver.dataAreas);
    callRuntime(link, station, name, address);
    if (isInHand)
        dataAreaIndex->takeUp(driver.dataAreas);
}
