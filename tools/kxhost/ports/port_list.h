#ifndef KX_KXHOST_PORTS_PORT_LIST_H
#define KX_KXHOST_PORTS_PORT_LIST_H

#include "system/port_holders.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

/// A port that a line can be named by. Texts are empty where the system knows nothing.
struct PortEntry {
    QString port; ///< its path
    QString description;
    QString manufacturer;
    QString serialNumber;
    quint16 vendor = 0; ///< of USB; 0: none
    quint16 product = 0;
    QString link;              ///< the way that kxsim's --symlink made to it
    PortHolder simulator;      ///< process 0: a real port
    QList<PortHolder> holders; ///< without the simulator
};

/// Serial ports by name, then the pseudo-terminals of running simulators by number. Opens none.
QList<PortEntry> listedPorts(const OpenDevices& devices);

/// "minicom (pid 12), kxhost (pid 34)": the programs that have a port open now, without this one
/// and the simulator that made it. Empty when none is known.
QString holdersText(const QString& port);

} // namespace kx

#endif
