#include "listen/capture_format.h"

#include <QtCore/QtEndian>

namespace kx
{

namespace
{

const quint32 MAGIC = 0xA1B2C3D4; // times in microseconds, in the byte order of this number
const quint16 MAJOR_VERSION = 2;
const quint16 MINOR_VERSION = 4;
const quint32 LONGEST_PACKET = 65535; // bytes
const quint32 UPPER_PROTOCOL_LINK = 252;
const qint64 MICROSECONDS = 1000000;

// Tags in front of what a packet holds; numbers in them are big-endian.
const quint16 PROTOCOL_TAG = 12;
const quint16 PORT_KIND_TAG = 24;
const quint16 SOURCE_PORT_TAG = 25;
const quint16 TARGET_PORT_TAG = 26;
const quint16 END_TAG = 0;
const quint32 TCP_PORTS = 2;
const quint32 MODBUS_PORT = 502;
const quint32 MASTER_PORT = 50000;
const int TAG_ALIGNMENT = 4; // bytes

template <typename Number>
QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, reinterpret_cast<uchar*>(bytes.data()));
    return bytes;
}

template <typename Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, reinterpret_cast<uchar*>(bytes.data()));
    return bytes;
}

QByteArray tag(quint16 kind, QByteArray value)
{
    while (value.size() % TAG_ALIGNMENT != 0)
        value += '\0';
    return bigEndian(kind) + bigEndian(static_cast<quint16>(value.size())) + value;
}

QByteArray tagsOf(const HeardPiece& piece)
{
    if (!piece.isFrame)
        return tag(PROTOCOL_TAG, "data") + tag(END_TAG, QByteArray());
    return tag(PROTOCOL_TAG, "mbrtu") + tag(PORT_KIND_TAG, bigEndian(TCP_PORTS))
           + tag(SOURCE_PORT_TAG, bigEndian(piece.isRequest ? MASTER_PORT : MODBUS_PORT))
           + tag(TARGET_PORT_TAG, bigEndian(piece.isRequest ? MODBUS_PORT : MASTER_PORT))
           + tag(END_TAG, QByteArray());
}

} // namespace

QByteArray captureHeader()
{
    const quint32 timeZone = 0;
    const quint32 accuracy = 0;
    return littleEndian(MAGIC) + littleEndian(MAJOR_VERSION) + littleEndian(MINOR_VERSION)
           + littleEndian(timeZone) + littleEndian(accuracy) + littleEndian(LONGEST_PACKET)
           + littleEndian(UPPER_PROTOCOL_LINK);
}

QByteArray capturePacket(const HeardPiece& piece, qint64 time)
{
    const QByteArray packet = tagsOf(piece) + piece.bytes;
    const auto length = static_cast<quint32>(packet.size());
    return littleEndian(static_cast<quint32>(time / MICROSECONDS))
           + littleEndian(static_cast<quint32>(time % MICROSECONDS)) + littleEndian(length)
           + littleEndian(length) + packet;
}

} // namespace kx
