#include "exchange/lines/frame_crc.h"

#include "modbus/crc.h"

namespace kx
{

QByteArray withCrc(const QByteArray& bytes)
{
    const quint16 crc = modbusCrc(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                  static_cast<int>(bytes.size()));
    return bytes + static_cast<char>(crc & 0xFF) + static_cast<char>(crc >> 8);
}

} // namespace kx
