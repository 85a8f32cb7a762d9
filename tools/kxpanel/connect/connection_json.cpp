#include "kxpanel/connect/connection_json.h"

#include "kxhost/options/command_parser.h"

#include <QtCore/QStringList>

namespace kxpanel
{

namespace
{

const QSerialPort::Parity PARITIES[] = {QSerialPort::NoParity, QSerialPort::EvenParity,
                                        QSerialPort::OddParity};

QStringList parityNames()
{
    return {QStringLiteral("none"), QStringLiteral("even"), QStringLiteral("odd")};
}

QString parityName(QSerialPort::Parity parity)
{
    int row = 0;
    for (const QSerialPort::Parity known : PARITIES) {
        if (known == parity)
            return parityNames().at(row);
        ++row;
    }
    return parityNames().first();
}

/// 0: not in the object, or not in the range.
int wholeNumber(const QJsonObject& json, const char* name, int lowest, int highest)
{
    const int number = json.value(QLatin1String(name)).toInt();
    return number >= lowest && number <= highest ? number : 0;
}

void takeCharacters(const QJsonObject& json, kx::ConnectionOptions* options)
{
    if (const int baud = wholeNumber(json, "baud", 1, kx::FASTEST_BAUD))
        options->timing.baud = baud;
    if (const int bits = wholeNumber(json, "stopBits", 1, 2))
        options->timing.stopBits = bits;
    options->session.gatewayBaud = options->timing.baud;
    const auto parity = parityNames().indexOf(json.value(QLatin1String("parity")).toString());
    if (parity < 0)
        return;
    options->parity = PARITIES[parity];
    options->timing.parityBits = parity == 0 ? 0 : 1;
}

} // namespace

QJsonObject connectionJson(const kx::ConnectionOptions& options)
{
    const bool isGateway = !options.gateway.host.isEmpty();
    const char* const line = options.simulate ? "simulated" : isGateway ? "gateway" : "serial";
    QJsonObject json{{QStringLiteral("line"), QLatin1String(line)},
                     {QStringLiteral("port"), options.simulate ? QString() : options.port},
                     {QStringLiteral("baud"), options.timing.baud},
                     {QStringLiteral("parity"), parityName(options.parity)},
                     {QStringLiteral("stopBits"), options.timing.stopBits},
                     {QStringLiteral("station"), options.station}};
    if (isGateway) {
        json[QLatin1String("gateway")] = kx::gatewayText(options.gateway);
        json[QLatin1String("protocol")] =
            QLatin1String(options.protocol == kx::GatewayProtocol::Tcp ? "tcp" : "rtu");
    }
    return json;
}

void takeConnection(const QJsonObject& json, kx::ConnectionOptions* options)
{
    const QString line = json.value(QLatin1String("line")).toString();
    const QString protocol = json.value(QLatin1String("protocol")).toString();
    const QString port = json.value(QLatin1String("port")).toString();
    takeCharacters(json, options);
    if (!port.isEmpty())
        options->port = port;
    if (const int station = wholeNumber(json, "station", 1, 247))
        options->station = station;
    if (protocol == QLatin1String("tcp") || protocol == QLatin1String("rtu"))
        setProtocol(protocol == QLatin1String("tcp") ? kx::GatewayProtocol::Tcp
                                                     : kx::GatewayProtocol::Rtu,
                    options);
    if (line == QLatin1String("gateway"))
        kx::parseGatewayAddress(json.value(QLatin1String("gateway")).toString(), &options->gateway);
    else if (!line.isEmpty())
        options->gateway.host.clear();
    if (!line.isEmpty())
        options->simulate = line == QLatin1String("simulated");
}

void setProtocol(kx::GatewayProtocol protocol, kx::ConnectionOptions* options)
{
    if (protocol == options->protocol)
        return;
    options->protocol = protocol;
    options->session.exchange.settle =
        protocol == kx::GatewayProtocol::Tcp ? 0 : kx::ExchangeSettings().settle;
}

} // namespace kxpanel
