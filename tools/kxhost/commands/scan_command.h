#ifndef KX_TOOLS_SCAN_COMMAND_H
#define KX_TOOLS_SCAN_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost scan`: finds the stations that answer on a line.
int runScan(const QStringList& arguments);

#endif
