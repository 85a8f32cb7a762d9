#ifndef KX_LISTEN_HEARD_EXCHANGE_H
#define KX_LISTEN_HEARD_EXCHANGE_H

#include "listen/heard_piece.h"

namespace kx
{

enum class HeardKind {
    Answered,
    Refused,    ///< with an exception reply
    Unfitting,  ///< the reply's byte count is not what the request asks for
    Damaged,    ///< bytes came that begin as the reply would, without its CRC
    Unanswered, ///< another request came first, or the time-out
    Broadcast,  ///< to station 0, which nobody answers
    Open,       ///< the listening ended before its reply
    Stray,      ///< a reply without its request
    Noise       ///< bytes in no frame
};

/// A request with what came for it, or one of the two alone.
struct HeardExchange {
    HeardKind kind = HeardKind::Noise;
    HeardPiece request; ///< without bytes for Stray and Noise
    HeardPiece reply;   ///< without bytes when none came

    bool hasRequest() const { return !request.bytes.isEmpty(); }
    bool hasReply() const { return !reply.bytes.isEmpty(); }

    /// Microseconds from the request's last byte to the reply's first one, as both were read;
    /// -1 when there is no reply or both were read in one go.
    qint64 responseTime() const
    {
        return hasRequest() && hasReply() && !reply.isGlued ? reply.firstRead - request.lastRead
                                                            : -1;
    }
};

} // namespace kx

#endif
