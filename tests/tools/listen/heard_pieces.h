/// Pieces of a line for tests.
#ifndef KX_TESTS_TOOLS_LISTEN_HEARD_PIECES_H
#define KX_TESTS_TOOLS_LISTEN_HEARD_PIECES_H

#include "listen/heard_exchange.h"

#include "support/driver_fixture.h"

namespace kx
{

/// A frame, given without its CRC, all of whose bytes were read at `at` microseconds.
inline HeardPiece frameOf(const char* hexWithoutCrc, qint64 at = 0)
{
    HeardPiece piece;
    piece.bytes = withCrc(hexWithoutCrc);
    piece.isFrame = true;
    piece.firstRead = piece.lastRead = at;
    return piece;
}

/// Bytes in no frame.
inline HeardPiece noiseOf(const char* hex, qint64 at = 0)
{
    HeardPiece piece;
    piece.bytes = bytes(hex);
    piece.firstRead = piece.lastRead = at;
    return piece;
}

} // namespace kx

#endif
