#ifndef KX_KXHOST_READ_COMMAND_H
#define KX_KXHOST_READ_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost read`; returns an ExitCode.
int runRead(const QStringList& arguments);

#endif
