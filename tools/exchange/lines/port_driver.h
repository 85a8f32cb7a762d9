/// What only the driver of a serial port can do, on Linux; elsewhere it can do nothing.
#ifndef KX_EXCHANGE_LINES_PORT_DRIVER_H
#define KX_EXCHANGE_LINES_PORT_DRIVER_H

#include "exchange/lines/port_modes.h"

#include <QtCore/QString>

namespace kx
{

/// As ioctl(): 0, or -1 and errno.
using PortCall = int (*)(int descriptor, unsigned long request, void* argument);

/// The system's.
int callPort(int descriptor, unsigned long request, void* argument);

/// Whether the driver now reports bytes at once.
bool setLowLatency(int descriptor, PortCall call = callPort);

/// False and the system's reason in `*error` when the port cannot.
bool setRs485(int descriptor, const PortModes& modes, QString* error, PortCall call = callPort);

/// Bits per second at which the port sends; 0 when it does not say.
int baudOf(int descriptor, PortCall call = callPort);

/// "the port took 185185 baud instead of 187500", when that is off by more than 2 percent, of
/// which stations bear about as much; else, or when `taken` is 0, empty.
QString baudRemark(int asked, int taken);

} // namespace kx

#endif
