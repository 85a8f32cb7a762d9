#include "kxhost/version_text.h"

#include "exchange/driver_library.h"
#include "kxhost/connection.h"

#include <QtCore/QFileInfo>

#include <dlfcn.h>

namespace
{

QString fileOfDriver()
{
    DriverEntryPoints driver;
    QString error;
    if (!loadDriver(driverFile(QString()), &driver, &error))
        return error;
    Dl_info info;
    if (dladdr(reinterpret_cast<void*>(driver.getProtocolType), &info) == 0)
        return QString::fromLatin1(DRIVER_LIBRARY_NAME);
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalFilePath();
}

} // namespace

QString versionText()
{
    return QString::fromLatin1("kxhost " KX_VERSION "\nQt %1\ndriver library: ")
               .arg(QLatin1String(qVersion()))
           + fileOfDriver() + QLatin1Char('\n');
}
