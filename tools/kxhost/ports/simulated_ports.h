#ifndef KX_KXHOST_PORTS_SIMULATED_PORTS_H
#define KX_KXHOST_PORTS_SIMULATED_PORTS_H

#include "kxhost/ports/port_list.h"

namespace kx
{

/// The pseudo-terminals that running simulators, kxsim, answer on, by their numbers; without
/// holders. Those of other users cannot be seen.
/// @param processes where the system shows its processes
QList<PortEntry> simulatedPorts(const QString& processes = QStringLiteral("/proc"));

} // namespace kx

#endif
