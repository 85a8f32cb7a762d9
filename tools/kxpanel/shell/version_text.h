#ifndef KX_KXPANEL_SHELL_VERSION_TEXT_H
#define KX_KXPANEL_SHELL_VERSION_TEXT_H

#include <QtCore/QStringList>

namespace kxpanel
{

/// "kxpanel 1.2.3", then the versions of what it runs with, each a row.
QStringList versionRows();

} // namespace kxpanel

#endif
