/// What was heard as a pcap file, bytes for its writer. Pure functions.
#ifndef KX_LISTEN_CAPTURE_FORMAT_H
#define KX_LISTEN_CAPTURE_FORMAT_H

#include "listen/heard_piece.h"

#include <QtCore/QByteArray>

namespace kx
{

/// The beginning of the file: link type 252, whose packets name the protocol that they hold, so
/// that Wireshark reads Modbus RTU without being told.
QByteArray captureHeader();

/// One packet: "mbrtu" for a frame, "data" for bytes in no frame. Requests go to port 502 and
/// replies come from it: that tells the two apart for a reader whose Modbus RTU port is 502.
/// @param time of its last byte, in microseconds since 1970-01-01 UTC
QByteArray capturePacket(const HeardPiece& piece, qint64 time);

} // namespace kx

#endif
