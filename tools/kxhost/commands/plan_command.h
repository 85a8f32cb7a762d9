#ifndef KX_TOOLS_PLAN_COMMAND_H
#define KX_TOOLS_PLAN_COMMAND_H

#include <QtCore/QStringList>

/// `kxhost plan`: shows what the driver would ask for a watch list, and how long
/// that takes.
int runPlan(const QStringList& arguments);

#endif
