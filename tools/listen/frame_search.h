/// Looks for a frame at the beginning of bytes that were heard. Pure functions.
#ifndef KX_LISTEN_FRAME_SEARCH_H
#define KX_LISTEN_FRAME_SEARCH_H

#include <QtCore/QByteArray>

namespace kx
{

struct FrameSearch {
    int length = 0;         ///< of the frame; 0: none is there, or not yet
    bool needsMore = false; ///< more bytes may make it a frame
};

/// A frame is what has the length of a request or reply and the right CRC. What answers the
/// open request is looked for first, since by chance, once in 65,536 times, eight bytes of a
/// reply look like a request; then requests, then other replies. Functions unknown here make a
/// frame when bytes between two pauses end in their CRC.
/// @param open  the request that waits for its reply; empty: none does
/// @param block bytes from a pause to the next one; NEEDS_MORE: the next one has not come;
///              0: no pause stands before the first byte
/// @pre at least one byte, two with a block
FrameSearch frameAt(const QByteArray& bytes, const QByteArray& open, int block);

} // namespace kx

#endif
