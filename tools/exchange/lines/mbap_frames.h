/// Frames of Modbus TCP: transaction, protocol and length in front of the station and its request,
/// and no CRC behind. Pure functions.
#ifndef KX_EXCHANGE_LINES_MBAP_FRAMES_H
#define KX_EXCHANGE_LINES_MBAP_FRAMES_H

#include <QtCore/QByteArray>

namespace kx
{

/// Station, function and CRC: what every RTU frame has.
const int SHORTEST_RTU_FRAME = 4; // bytes

struct MbapFrame {
    quint16 transaction = 0; ///< of the request that it answers
    QByteArray rtu;          ///< the same as an RTU frame: station to CRC
};

enum class MbapContent {
    Incomplete, ///< may still become a frame
    Frame,
    Wrong ///< no frame begins here: another protocol, or a length that none has
};

/// The Modbus TCP frame of an RTU frame of at least SHORTEST_RTU_FRAME bytes, whose CRC is left
/// out.
QByteArray mbapFrame(quint16 transaction, const QByteArray& rtuFrame);

/// Takes the frame at the beginning of what has come; all but Frame leave both as they are.
MbapContent takeMbapFrame(QByteArray* received, MbapFrame* frame);

/// Whether the bytes are one whole reply in Modbus TCP.
bool isMbapReply(const QByteArray& received);

} // namespace kx

#endif
