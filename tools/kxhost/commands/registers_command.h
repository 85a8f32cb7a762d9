#ifndef KX_TOOLS_REGISTERS_COMMAND_H
#define KX_TOOLS_REGISTERS_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost registers`: shows the driver's register types.
int runRegisters(const QStringList& arguments);

#endif
