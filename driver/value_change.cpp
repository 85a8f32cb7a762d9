#include "driver/value_change.h"

#include "driver/data_area_index.h"
#include "driver/tarvelan.h"

void callRuntime(int link, int station, const QString& name, int address)
{
    const bool undisturbed = driver.dataAreaIndex->setUndisturbed(false);
    driver.valueChangeCallBack(link, station, name, address);
    driver.dataAreaIndex->setUndisturbed(undisturbed);
}
