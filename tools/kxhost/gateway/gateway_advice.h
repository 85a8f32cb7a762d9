#ifndef KX_KXHOST_GATEWAY_GATEWAY_ADVICE_H
#define KX_KXHOST_GATEWAY_GATEWAY_ADVICE_H

#include "exchange/connection.h"

#include <QtCore/QObject>

namespace kx
{

/// How a person chooses a protocol.
struct ProtocolNames {
    QString rtu = QStringLiteral("--protocol rtu");
    QString tcp = QStringLiteral("--protocol tcp");
};

/// Looks at what a gateway answers: a server of Modbus TCP takes RTU frames for something else, and
/// the other way round; it answers with its own frames, closes the connection or says nothing.
class GatewayAdvice : public QObject
{
    Q_OBJECT

public:
    /// @param name of the gateway's line
    /// @param spoken in which it is spoken to
    GatewayAdvice(const QString& name, GatewayProtocol spoken,
                  const ProtocolNames& names = ProtocolNames());

    /// One line that says what to try, when no station has answered in the protocol spoken; empty
    /// while nothing speaks for the other one.
    QString text() const;

    /// What came back for a request.
    void onExchange(const kx::ExchangeRecord& record);
    void onLineLost() { m_isLost = true; }

private:
    QString m_name;
    GatewayProtocol m_spoken;
    ProtocolNames m_names;
    bool m_hasAsked = false;
    bool m_isUnderstood = false; ///< a frame came in the protocol spoken
    bool m_sendsMbap = false;    ///< which is not spoken
    bool m_sendsBytes = false;
    bool m_isLost = false;
};

/// Deletes an advice when the command is over, and gives it before that on standard error.
struct AdviceGiver {
    void operator()(GatewayAdvice* advice) const;
};

} // namespace kx

#endif
