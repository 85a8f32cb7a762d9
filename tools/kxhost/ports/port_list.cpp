#include "kxhost/ports/port_list.h"

#include "kxhost/ports/simulated_ports.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStringList>
#include <QtSerialPort/QSerialPortInfo>

#include <algorithm>
#include <unistd.h>

namespace kx
{

namespace
{

PortEntry entryOf(const QSerialPortInfo& info)
{
    PortEntry entry;
    entry.port = info.systemLocation();
    entry.description = info.description();
    entry.manufacturer = info.manufacturer();
    entry.serialNumber = info.serialNumber();
    entry.vendor = info.hasVendorIdentifier() ? info.vendorIdentifier() : quint16(0);
    entry.product = info.hasProductIdentifier() ? info.productIdentifier() : quint16(0);
    return entry;
}

} // namespace

QList<PortEntry> listedPorts(const OpenDevices& devices)
{
    QList<PortEntry> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports << entryOf(info);
    std::sort(ports.begin(), ports.end(),
              [](const PortEntry& one, const PortEntry& other) { return one.port < other.port; });
    ports += simulatedPorts();
    for (PortEntry& entry : ports) {
        for (const PortHolder& holder : devices.holdersOf(entry.port)) {
            if (holder.process != entry.simulator.process)
                entry.holders << holder;
        }
    }
    return ports;
}

QString holdersText(const QString& port)
{
    const QString device = QFileInfo(port).canonicalFilePath();
    QList<qint64> others = {getpid()};
    for (const PortEntry& simulated : simulatedPorts()) {
        if (simulated.port == device)
            others << simulated.simulator.process;
    }
    QStringList programs;
    for (const PortHolder& holder : OpenDevices().holdersOf(device)) {
        if (!others.contains(holder.process))
            programs << QStringLiteral("%1 (pid %2)").arg(holder.program).arg(holder.process);
    }
    return programs.join(QLatin1String(", "));
}

} // namespace kx
