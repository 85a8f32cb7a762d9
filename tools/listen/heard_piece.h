#ifndef KX_LISTEN_HEARD_PIECE_H
#define KX_LISTEN_HEARD_PIECE_H

#include <QtCore/QByteArray>

namespace kx
{

/// A frame as it was heard, or a run of bytes in no frame. Times are in microseconds since
/// some moment in the past.
struct HeardPiece {
    QByteArray bytes;
    bool isFrame = false;   ///< its CRC is right
    bool isRequest = false; ///< of a frame
    qint64 firstRead = 0;   ///< when its first byte was read
    qint64 lastRead = 0;    ///< when its last byte was read
    bool isGlued = false;   ///< read in one go with the end of what was before it
    /// When its first character can have begun and its last one ended at the latest.
    qint64 begin = 0;
    qint64 end = 0;
    /// By how much both may be wrong, as far as the bytes in it show: they follow each
    /// other on the line without a pause, however they are read.
    qint64 doubt = 0;
};

} // namespace kx

#endif
