#include "kxhost/commands/version_text.h"

#include "exchange/driver_library.h"
#include "kxhost/commands/connection.h"
#include "system/translated_text.h"

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
    const QString driver =
        Text::tr("driver library: %1").arg(findDriver(&file, &error) ? file : error);
    return QStringLiteral("kxhost " KX_VERSION "\nQt %1\n%2\n")
        .arg(QLatin1String(qVersion()), driver);
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
