/// What the bytes that came back after a request are. Pure functions.
#ifndef KX_EXCHANGE_REPLIES_REPLY_VERDICT_H
#define KX_EXCHANGE_REPLIES_REPLY_VERDICT_H

#include "driver/records.h"

#include <QtCore/QByteArray>

namespace kx
{

enum class Verdict {
    Incomplete,     ///< may still become a reply
    Good,           ///< the reply to this request
    Exception,      ///< this station refuses this request; see exceptionCodeOf()
    Foreign,        ///< a whole frame that answers another request
    WrongByteCount, ///< a reply to this request but for its byte count
    Echo,           ///< the request itself, as on a line that hears its own bytes
    Bad             ///< as many bytes as expected, or more, and no frame in them
};

struct Judgement {
    Verdict verdict = Verdict::Incomplete;
    int length = 0; ///< bytes from the start that the verdict is about
};

/// The driver checks length and CRC only, so the runtime checks that station,
/// function, byte count and (for writes) the echoed fields suit the request. The
/// reply to a write of one coil or register equals its request and is Good.
/// @param request of 1 to FRAME_SIZE bytes
Judgement judgeReply(const FRAME_PRO& request, const QByteArray& received);

bool isReadRequest(const FRAME_PRO& request);

/// Whether a reply to one of these requests can look like a reply to the other.
bool areMistakable(const FRAME_PRO& one, const FRAME_PRO& other);

/// Length of the whole frame, CRC and all, at the beginning of `received`; 0 if none.
int frameLengthOf(const QByteArray& received);

/// The code of an exception reply: 1 illegal function, 2 illegal address, ...
int exceptionCodeOf(const QByteArray& exceptionReply);

/// Whether the last two bytes are the CRC of those before them.
bool endsWithItsCrc(const QByteArray& frame);

} // namespace kx

#endif
