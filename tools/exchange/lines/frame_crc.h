/// The CRC that Modbus RTU frames end with. A pure function.
#ifndef KX_EXCHANGE_LINES_FRAME_CRC_H
#define KX_EXCHANGE_LINES_FRAME_CRC_H

#include <QtCore/QByteArray>

namespace kx
{

/// The bytes and, behind them, their CRC, its low byte first.
QByteArray withCrc(const QByteArray& bytes);

} // namespace kx

#endif
