#include "kxhost/gateway/gateway_advice.h"

#include "exchange/lines/mbap_frames.h"
#include "exchange/replies/reply_verdict.h"
#include "kxhost/terminal/console.h"
#include "kxhost/terminal/exit_codes.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

bool isFrame(const QByteArray& reply)
{
    return reply.size() >= SHORTEST_RTU_FRAME
           && (endsWithItsCrc(reply) || frameLengthOf(reply) > 0);
}

} // namespace

GatewayAdvice::GatewayAdvice(const QString& name, GatewayProtocol spoken,
                             const ProtocolNames& names)
    : m_name(name), m_spoken(spoken), m_names(names)
{
}

void GatewayAdvice::onExchange(const ExchangeRecord& record)
{
    m_hasAsked = true;
    m_isUnderstood = m_isUnderstood || isFrame(record.reply);
    m_sendsMbap = m_sendsMbap || isMbapReply(record.reply);
    m_sendsBytes = m_sendsBytes || !record.reply.isEmpty();
    m_isLost = m_isLost || record.replyKind == ReplyKind::Lost;
}

QString GatewayAdvice::text() const
{
    if (m_isUnderstood)
        return QString();
    if (m_sendsMbap)
        return Text::tr("%1 answers with Modbus TCP frames; use %2").arg(m_name, m_names.tcp);
    const bool isSilent = m_hasAsked && !m_sendsBytes;
    if (!m_isLost && !isSilent)
        return QString();
    const QString fact =
        (m_isLost ? Text::tr("the connection to %1 is lost and no station has answered")
                  : Text::tr("nothing came from %1"))
            .arg(m_name);
    QString advice =
        m_spoken == GatewayProtocol::Rtu
            ? Text::tr("%1; if it is a Modbus TCP server, use %2").arg(fact, m_names.tcp)
            : Text::tr("%1; if it passes the serial line's bytes on, use %2")
                  .arg(fact, m_names.rtu);
    if (m_isLost)
        return advice;
    // Many take one connection at a time.
    return Text::tr("%1; else it may be serving another program").arg(advice);
}

void AdviceGiver::operator()(GatewayAdvice* advice) const
{
    if (!advice->text().isEmpty())
        complain(advice->text(), EXIT_DEVICE_FAILED);
    delete advice;
}

} // namespace kx
