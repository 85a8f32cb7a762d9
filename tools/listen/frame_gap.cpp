#include "listen/frame_gap.h"

#include <algorithm>

namespace kx
{

FrameGap gapBetween(const HeardPiece& before, const HeardPiece& piece, qint64 shortest)
{
    const qint64 silence = piece.begin - before.end;
    FrameGap gap;
    gap.silence = std::max<qint64>(0, silence);
    gap.doubt = before.doubt + piece.doubt;
    if (silence - gap.doubt >= shortest)
        gap.verdict = GapVerdict::Kept;
    else if (gap.silence + gap.doubt < shortest)
        gap.verdict = GapVerdict::TooShort;
    return gap;
}

} // namespace kx
