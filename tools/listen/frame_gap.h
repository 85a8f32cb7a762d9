/// Whether two pieces of the line have the silence between them that ends a frame. Pure
/// functions.
#ifndef KX_LISTEN_FRAME_GAP_H
#define KX_LISTEN_FRAME_GAP_H

#include "listen/heard_piece.h"

namespace kx
{

enum class GapVerdict {
    Kept,     ///< the silence was long enough, however late the bytes were read
    TooShort, ///< it was not, however late they were read
    Unclear   ///< the times do not tell: bytes were read late, or many in one go
};

struct FrameGap {
    GapVerdict verdict = GapVerdict::Unclear;
    qint64 silence = 0; ///< microseconds between the two, not below 0; as wrong as `doubt`
    qint64 doubt = 0;   ///< microseconds
};

/// Bytes are read when the system hands them over, never before they end on the line. How much
/// later shows within frames, where one follows the other at once; a program that is held up
/// exactly between two frames is not seen by that.
/// @param shortest microseconds, as LineTiming::frameGap()
FrameGap gapBetween(const HeardPiece& before, const HeardPiece& piece, qint64 shortest);

} // namespace kx

#endif
