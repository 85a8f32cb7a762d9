#include "exchange/replies/driver_request.h"

#include "addresses/request_limits.h"

#include <QtCore/QtEndian>

#include <cstring>

namespace kx
{

namespace
{

const int ADDRESS_AND_QUANTITY = 6; // bytes up to the end of both
const int QUANTITY_POSITION = 4;
const int READ_REPLY_OVERHEAD = 5; // station, function, byte count, CRC
const int CONFIRMATION_LENGTH = 8; // of a write

int goodReplyLength(const QByteArray& request)
{
    if (request.size() < ADDRESS_AND_QUANTITY)
        return 0;
    const int function = static_cast<unsigned char>(request.at(1));
    const int quantity = qFromBigEndian<quint16>(request.constData() + QUANTITY_POSITION);
    switch (function) {
    case 1:
    case 2:
        return READ_REPLY_OVERHEAD + (quantity + 7) / 8;
    case 3:
    case 4:
        return READ_REPLY_OVERHEAD + quantity * BYTES_PER_REGISTER;
    case 5:
    case 6:
    case 15:
    case 16:
        return CONFIRMATION_LENGTH;
    default:
        return 0;
    }
}

} // namespace

FRAME_PRO driverRequest(const QByteArray& request)
{
    FRAME_PRO frame = FRAME_PRO();
    frame.sendLen = static_cast<int>(qMin<qint64>(request.size(), FRAME_SIZE));
    frame.recvLen = goodReplyLength(request);
    std::memcpy(frame.frame, request.constData(), static_cast<size_t>(frame.sendLen));
    return frame;
}

} // namespace kx
