#include "driver/value_change.h"

#include "driver/tarvelan.h"

void callRuntime(int link, int station, const QString& name, int address)
{
    driver.valueChangeCallBack(link, station, name, address);
}
