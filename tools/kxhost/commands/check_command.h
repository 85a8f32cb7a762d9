#ifndef KX_TOOLS_CHECK_COMMAND_H
#define KX_TOOLS_CHECK_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost check`: asks the driver whether addresses are valid.
int runCheck(const QStringList& arguments);

#endif
