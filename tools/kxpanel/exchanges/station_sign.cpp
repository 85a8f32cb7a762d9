#include "kxpanel/exchanges/station_sign.h"

namespace kxpanel
{

namespace
{

bool isGatewaysExcuse(const Exchange& exchange)
{
    return exchange.replyKind == kx::ReplyKind::Exception
           && kx::isGatewayException(exchange.exceptionCode);
}

} // namespace

StationSign signOf(const Exchange& exchange)
{
    if (isStationsReply(exchange))
        return StationSign::Heard;
    switch (exchange.replyKind) {
    case kx::ReplyKind::None:
    case kx::ReplyKind::Exception:
        return exchange.isFinal ? StationSign::Silent : StationSign::Nothing;
    case kx::ReplyKind::Short:
    case kx::ReplyKind::Bad:
    case kx::ReplyKind::WrongByteCount:
    case kx::ReplyKind::Good:
        return StationSign::Heard;
    case kx::ReplyKind::Foreign:
    case kx::ReplyKind::Lost:
    case kx::ReplyKind::Broadcast:
    case kx::ReplyKind::NotSent:
    case kx::ReplyKind::NeverSilent:
        break;
    }
    return StationSign::Nothing;
}

bool isStationsReply(const Exchange& exchange)
{
    return exchange.turnaround >= 0 && !isGatewaysExcuse(exchange);
}

} // namespace kxpanel
