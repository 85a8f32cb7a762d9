/// The driver library, loaded at run time as a panel loads it: by file name, its
/// entry points resolved by name. Nothing here is linked against the driver.
#ifndef KX_EXCHANGE_DRIVER_LIBRARY_H
#define KX_EXCHANGE_DRIVER_LIBRARY_H

#include "addresses/export.h"
#include "driver/tarvelan.h"
#include "tarvelan_kx_series.h"

#include <QtCore/QString>

namespace kx
{

/// The name that a runtime looks for.
const char* const DRIVER_LIBRARY_NAME = "libtarvelan_kx_series.so.1";

/// The driver's functions, and the object they work on. Their contracts stand in the driver's
/// headers.
struct DriverEntryPoints {
    tarvelan* object = nullptr;
    decltype(&intf_initProperty) initProperty = nullptr;
    decltype(&intf_setAddrValueChangeCallBack) setAddrValueChangeCallBack = nullptr;
    decltype(&intf_getProtocolType) getProtocolType = nullptr;
    decltype(&intf_getDriverParameter) getDriverParameter = nullptr;
    decltype(&intf_getDriverPropertyPage) getDriverPropertyPage = nullptr;
    decltype(&intf_SetDriverPropertyPage) setDriverPropertyPage = nullptr;
    decltype(&intf_getRegListByType) getRegListByType = nullptr;
    decltype(&intf_getRegDiscription) getRegDiscription = nullptr;
    decltype(&intf_checkAddrValidity) checkAddrValidity = nullptr;
    decltype(&intf_checkAddr) checkAddr = nullptr;
    decltype(&intf_multiCopy) multiCopy = nullptr;
    decltype(&intf_setRcpAddress) setRcpAddress = nullptr;
    decltype(&intf_addrMerge) addrMerge = nullptr;
    decltype(&intf_addConditionRead) addConditionRead = nullptr;
    decltype(&intf_getSendFrame) getSendFrame = nullptr;
    decltype(&intf_dealRcvFrame) dealRcvFrame = nullptr;
    decltype(&intf_getData) getData = nullptr;
    decltype(&intf_setData) setData = nullptr;
};

/// Loads `fileName` (a path, or a bare name for the system's search) and resolves
/// all entry points. The library stays loaded until the program ends, since
/// strings that it handed out may live on.
/// @return false and one line in `*error` that names the file, and the entry
///         point when one is missing; `*entryPoints` is then unchanged
KXRUNTIME_EXPORT bool loadDriver(const QString& fileName, DriverEntryPoints* entryPoints,
                                 QString* error);

} // namespace kx

#endif
