#include "kxhost/commands/version_text.h"

#include "exchange/driver_library.h"
#include "kxhost/commands/connection.h"

#include <QtCore/QFileInfo>

#include <dlfcn.h>

namespace kx
{

namespace
{

/// False and the reason in `*error` when the library cannot be loaded.
bool findDriver(QString* file, QString* error)
{
    DriverEntryPoints driver;
    if (!loadDriver(driverFile(QString()), &driver, error))
        return false;
    Dl_info info;
    *file = dladdr(reinterpret_cast<void*>(driver.getProtocolType), &info) == 0
                ? QString::fromLatin1(DRIVER_LIBRARY_NAME)
                : QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalFilePath();
    return true;
}

} // namespace

QString versionText()
{
    QString file;
    QString error;
    return QString::fromLatin1("kxhost " KX_VERSION "\nQt %1\ndriver library: ")
               .arg(QLatin1String(qVersion()))
           + (findDriver(&file, &error) ? file : error) + QLatin1Char('\n');
}

QJsonObject versionJson()
{
    QJsonObject json{{QLatin1String("kxhost"), QLatin1String(KX_VERSION)},
                     {QLatin1String("qt"), QLatin1String(qVersion())}};
    QString file;
    QString error;
    if (findDriver(&file, &error))
        json[QLatin1String("driverLibrary")] = file;
    else
        json[QLatin1String("driverError")] = error;
    return json;
}

} // namespace kx
