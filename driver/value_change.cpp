#include "driver/value_change.h"

#include "driver/data_area_index.h"
#include "driver/tarvelan.h"

void callRuntime(int link, int station, const QString& name, int address)
{
    const bool isInHand = dataAreaIndex->isInHand();
    if (isInHand)
        dataAreaIndex->letGo(driver.dataAreas);
    driver.valueChangeCallBack(link, station, name, address);
    if (isInHand)
        dataAreaIndex->takeUp(driver.dataAreas);
}
