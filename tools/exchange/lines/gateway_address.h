/// Where a gateway is: a name or an IP address, and a port.
#ifndef KX_EXCHANGE_LINES_GATEWAY_ADDRESS_H
#define KX_EXCHANGE_LINES_GATEWAY_ADDRESS_H

#include "addresses/export.h"

#include <QtCore/QString>

namespace kx
{

struct GatewayAddress {
    QString host; ///< an IPv6 address without brackets
    quint16 port = 0;
};

/// Reads HOST or HOST:PORT, an IPv6 address in brackets: "gateway", "192.168.0.5:4001",
/// "[::1]:8888", "[fe80::1%eth0]". Without a port, `gateway->port` stays as it is. False
/// when the text is none of that; `*gateway` is then untouched.
KXRUNTIME_EXPORT bool parseGatewayAddress(const QString& text, GatewayAddress* gateway);

/// As it is typed, always with its port: "gateway:8888", "[::1]:8888".
KXRUNTIME_EXPORT QString gatewayText(const GatewayAddress& gateway);

} // namespace kx

#endif
