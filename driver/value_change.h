#ifndef TARVELAN_DRIVER_VALUE_CHANGE_H
#define TARVELAN_DRIVER_VALUE_CHANGE_H

#include <QtCore/QString>

/// Calls the runtime's value-change function, from inside which the runtime may
/// call back into the driver. The one place that calls it. While the cache is in hand,
/// tellRuntime() comes between.
void callRuntime(int link, int station, const QString& name, int address);

#endif
