/// What came back for bytes that somebody sent. Pure functions.
#ifndef KX_KXHOST_RAW_RAW_REPLY_H
#define KX_KXHOST_RAW_RAW_REPLY_H

#include <QtCore/QByteArray>

namespace kx
{

enum class RawResult {
    None,      ///< nothing came, apart from an echo
    Good,      ///< the reply to this request
    Exception, ///< the station refuses this request
    Other,     ///< a whole frame that answers another request
    Damaged    ///< bytes that are no frame
};

struct RawReply {
    RawResult result = RawResult::None;
    bool hasEcho = false; ///< the request itself came back first
    QByteArray frame;     ///< station to CRC; of None nothing, of Damaged all that came
    QByteArray behind;    ///< what came behind the frame
};

/// Judges all that came. Of functions that are not in the driver's use, station and function
/// decide. The reply to a write of one coil or register equals its request.
/// @param request as it was sent, with its CRC or without; at least 1 byte
RawReply rawReplyOf(const QByteArray& request, const QByteArray& received);

} // namespace kx

#endif
