#include "modbus/reply_check.h"

#include "driver/tarvelan.h"
#include "modbus/crc.h"
#include "modbus/frame_bytes.h"

int check_rcv_data(unsigned char* buf, int len)
{
    if (driver.frameList.isEmpty())
        return REPLY_BAD;
    const FRAME_PRO& request = driver.frameList.first();
    if (len == 0)
        return request.recvLen == 0 ? REPLY_ACKNOWLEDGES : REPLY_BAD;
    if (len != request.recvLen || len < CRC_LENGTH)
        return REPLY_BAD;

    // The number of checked bytes is a 16-bit count.
    const quint16 crc = modbusCrc(buf, static_cast<quint16>(len - CRC_LENGTH));
    if (buf[len - 1] != crc >> 8 || buf[len - 2] != (crc & 0xFF))
        return REPLY_BAD;
    return request.dataLen != 0 ? REPLY_WITH_DATA : REPLY_ACKNOWLEDGES;
}
