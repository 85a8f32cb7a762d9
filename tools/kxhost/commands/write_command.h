#ifndef KX_KXHOST_WRITE_COMMAND_H
#define KX_KXHOST_WRITE_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost write`; returns an ExitCode.
int runWrite(const QStringList& arguments);

#endif
