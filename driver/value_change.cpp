#include "driver/value_change.h"

#include "driver/data_area_index.h"
#include "driver/tarvelan.h"

void callRuntime(int link, int station, const QString& name, int address)
{
    const bool undisturbed = dataAreaIndex->setUndisturbed(false);
    driver.valueChangeCallBack(link, station, name, address);
    dataAreaIndex->setUndisturbed(undisturbed);
}
