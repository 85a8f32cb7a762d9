#include "kxhost/ports/port_list.h"

#include "kxhost/ports/simulated_ports.h"

#include <QtSerialPort/QSerialPortInfo>

#include <algorithm>

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

} // namespace kx
