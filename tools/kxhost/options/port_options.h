/// What is asked of the driver of a serial port.
#ifndef KX_KXHOST_OPTIONS_PORT_OPTIONS_H
#define KX_KXHOST_OPTIONS_PORT_OPTIONS_H

#include "exchange/lines/port_modes.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

/// Declares --low-latency and --rs485.
void addPortOptions(QCommandLineParser* parser);

/// Reads them. False and one line in `*error` when a value is wrong, or when --rs485 is given
/// without --port.
bool parsePortOptions(const QCommandLineParser& parser, PortModes* modes, QString* error);

} // namespace kx

#endif
