#include "exchange/lines/gateway_address.h"

#include "addresses/digits.h"

#include <QtCore/QUrl>
#include <QtNetwork/QHostAddress>

namespace kx
{

namespace
{

bool isIpv6(const QString& host)
{
    const QHostAddress address(host);
    return address.protocol() == QAbstractSocket::IPv6Protocol;
}

/// @param port ":4001", or empty
bool takeAddress(const QString& host, const QString& port, GatewayAddress* gateway)
{
    const QString digits = port.mid(1);
    const bool isPort = port.startsWith(QLatin1Char(':')) && hasOnlyDigits(digits, 10);
    const int number = isPort ? digits.toUShort() : gateway->port;
    if (!isIpv6(host) || !(isPort || port.isEmpty()) || number < 1)
        return false;
    *gateway = {host, static_cast<quint16>(number)};
    return true;
}

bool parseName(const QString& text, GatewayAddress* gateway)
{
    const QUrl url(QLatin1String("tcp://") + text, QUrl::StrictMode);
    const int port = url.port(gateway->port);
    const bool isHostAlone =
        url.path().isEmpty() && url.userInfo().isEmpty() && !url.hasQuery() && !url.hasFragment();
    if (!url.isValid() || url.host().isEmpty() || port < 1 || !isHostAlone)
        return false;
    *gateway = {url.host(), static_cast<quint16>(port)};
    return true;
}

} // namespace

bool parseGatewayAddress(const QString& text, GatewayAddress* gateway)
{
    // The zone behind % is no part of an address in a URL.
    if (!text.startsWith(QLatin1Char('[')))
        return parseName(text, gateway);
    const auto end = text.indexOf(QLatin1Char(']'));
    return end > 0 && takeAddress(text.mid(1, end - 1), text.mid(end + 1), gateway);
}

QString gatewayText(const GatewayAddress& gateway)
{
    const bool needsBrackets = gateway.host.contains(QLatin1Char(':'));
    return QString::fromLatin1(needsBrackets ? "[%1]:%2" : "%1:%2")
        .arg(gateway.host, QString::number(gateway.port));
}

} // namespace kx
