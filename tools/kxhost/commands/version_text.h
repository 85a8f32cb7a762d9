#ifndef KX_KXHOST_COMMANDS_VERSION_TEXT_H
#define KX_KXHOST_COMMANDS_VERSION_TEXT_H

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace kx
{

/// What `kxhost --version` prints: the versions of kxhost and Qt, and the file that
/// the driver library is loaded from, which carries its version in its name.
QString versionText();

/// The same as `kxhost --version --json` prints it; driverError instead of
/// driverLibrary when the library cannot be loaded.
QJsonObject versionJson();

} // namespace kx

#endif
