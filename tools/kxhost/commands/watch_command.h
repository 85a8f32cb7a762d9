#ifndef KX_TOOLS_WATCH_COMMAND_H
#define KX_TOOLS_WATCH_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost watch`: reads values in cycles and shows their changes.
int runWatch(const QStringList& arguments);

#endif
