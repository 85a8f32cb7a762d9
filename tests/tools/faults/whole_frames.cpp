#include "tools/faults/whole_frames.h"

#include "exchange/replies/reply_verdict.h"

namespace kx
{

int wholeFramesIn(QByteArray bytes)
{
    int frames = 0;
    while (!bytes.isEmpty()) {
        const int length = frameLengthOf(bytes);
        frames += length > 0 ? 1 : 0;
        bytes.remove(0, length > 0 ? length : 1);
    }
    return frames;
}

} // namespace kx
