/// Ports as they are printed. Pure functions.
#ifndef KX_KXHOST_PORTS_PORTS_TEXT_H
#define KX_KXHOST_PORTS_PORTS_TEXT_H

#include "kxhost/ports/port_list.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

/// A table, or one line that says that there are none and what to do.
/// @param hasUnseen whether a port without a holder may have one that cannot be seen
QStringList portRows(const QList<PortEntry>& ports, bool hasUnseen);

QJsonObject portJson(const PortEntry& entry, bool hasUnseen);

} // namespace kx

#endif
