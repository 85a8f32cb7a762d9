/// A line as a project file keeps it.
///
///     {"line": "serial", "port": "/dev/ttyUSB0", "baud": 9600, "parity": "none", "stopBits": 1,
///      "gateway": "192.168.0.5:8888", "protocol": "rtu", "station": 1}
///
/// "line" is serial, gateway or simulated. Pure functions.
#ifndef KX_KXPANEL_CONNECT_CONNECTION_JSON_H
#define KX_KXPANEL_CONNECT_CONNECTION_JSON_H

#include "kxhost/options/connection_options.h"

#include <QtCore/QJsonObject>

namespace kxpanel
{

QJsonObject connectionJson(const kx::ConnectionOptions& options);

/// Puts into the options what the object holds of them. What is wrong or absent leaves them as
/// they are.
void takeConnection(const QJsonObject& json, kx::ConnectionOptions* options);

/// What goes with another protocol of a gateway: transactions tell late replies apart.
void setProtocol(kx::GatewayProtocol protocol, kx::ConnectionOptions* options);

} // namespace kxpanel

#endif
