/// How long frames are, by their first bytes. Pure functions.
#ifndef KX_LISTEN_FRAME_SHAPE_H
#define KX_LISTEN_FRAME_SHAPE_H

#include <QtCore/QByteArray>

namespace kx
{

const int NO_FRAME = 0;    ///< no frame of a known function begins so
const int NEEDS_MORE = -1; ///< the bytes are too few to tell

/// Bytes of the request that begins so, CRC and all; NO_FRAME or NEEDS_MORE. Known are the
/// functions 1 to 6, 15 and 16. Writes of more than a controller takes, whose byte count has
/// wrapped, are as long as their quantity says.
int requestLength(const QByteArray& bytes);

/// The same of a reply, exceptions included.
int replyLength(const QByteArray& bytes);

/// Bytes of the reply that belongs to `request` and begins so: of its station and function,
/// and with the byte count that it asks for; or its refusal.
int answerLength(const QByteArray& request, const QByteArray& bytes);

/// Whether requestLength() and replyLength() know the function of a frame.
bool isKnownFunction(const QByteArray& frame);

int stationOf(const QByteArray& frame);
int functionOf(const QByteArray& frame);
/// Two bytes of a frame, high byte first.
int numberAt(const QByteArray& frame, int position);

} // namespace kx

#endif
