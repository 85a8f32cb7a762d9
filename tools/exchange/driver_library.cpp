#include "exchange/driver_library.h"

#include "system/translated_text.h"

#include <QtCore/QLibrary>

namespace kx
{

namespace
{

/// Resolves one entry point after the other; remembers the first that is missing.
class Resolver
{
public:
    explicit Resolver(QLibrary* library) : m_library(library) {}

    template <typename Function>
    void resolve(const char* name, Function* function)
    {
        *function = reinterpret_cast<Function>(m_library->resolve(name));
        if (!*function && m_missing.isEmpty())
            m_missing = QString::fromLatin1(name);
    }

    QString missing() const { return m_missing; }

private:
    QLibrary* m_library;
    QString m_missing;
};

void resolveAll(Resolver* resolver, DriverEntryPoints* entryPoints)
{
    resolver->resolve("intf_initProperty", &entryPoints->initProperty);
    resolver->resolve("intf_setAddrValueChangeCallBack", &entryPoints->setAddrValueChangeCallBack);
    resolver->resolve("intf_getProtocolType", &entryPoints->getProtocolType);
    resolver->resolve("intf_getDriverParameter", &entryPoints->getDriverParameter);
    resolver->resolve("intf_getDriverPropertyPage", &entryPoints->getDriverPropertyPage);
    resolver->resolve("intf_SetDriverPropertyPage", &entryPoints->setDriverPropertyPage);
    resolver->resolve("intf_getRegListByType", &entryPoints->getRegListByType);
    resolver->resolve("intf_getRegDiscription", &entryPoints->getRegDiscription);
    resolver->resolve("intf_checkAddrValidity", &entryPoints->checkAddrValidity);
    resolver->resolve("intf_checkAddr", &entryPoints->checkAddr);
    resolver->resolve("intf_multiCopy", &entryPoints->multiCopy);
    resolver->resolve("intf_setRcpAddress", &entryPoints->setRcpAddress);
    resolver->resolve("intf_addrMerge", &entryPoints->addrMerge);
    resolver->resolve("intf_addConditionRead", &entryPoints->addConditionRead);
    resolver->resolve("intf_getSendFrame", &entryPoints->getSendFrame);
    resolver->resolve("intf_dealRcvFrame", &entryPoints->dealRcvFrame);
    resolver->resolve("intf_getData", &entryPoints->getData);
    resolver->resolve("intf_setData", &entryPoints->setData);
    resolver->resolve("driver", &entryPoints->object);
}

} // namespace

bool loadDriver(const QString& fileName, DriverEntryPoints* entryPoints, QString* error)
{
    QLibrary library(fileName);
    if (!library.load()) {
        *error = Text::tr("%1: cannot load the driver library: %2")
                     .arg(fileName, library.errorString().simplified());
        return false;
    }
    DriverEntryPoints found;
    Resolver resolver(&library);
    resolveAll(&resolver, &found);
    if (!resolver.missing().isEmpty()) {
        *error =
            Text::tr("%1: not the driver library: it has no %2").arg(fileName, resolver.missing());
        return false;
    }
    *entryPoints = found;
    return true;
}

} // namespace kx
