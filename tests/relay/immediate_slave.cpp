#include "relay/immediate_slave.h"

#include "modbus/crc.h"

namespace kx
{

namespace
{

const int SHORTEST_REQUEST = 8;
const int BYTES_AROUND_VALUES = 9; // station, function, address, quantity, byte count, CRC
const int BYTE_COUNT_AT = 6;

int byteAt(const QByteArray& bytes, int index)
{
    return static_cast<unsigned char>(bytes.at(index));
}

int wordAt(const QByteArray& bytes, int index)
{
    return byteAt(bytes, index) << 8 | byteAt(bytes, index + 1);
}

QByteArray coils(int address, int quantity)
{
    QByteArray bytes((quantity + 7) / 8, '\0');
    for (int i = 0; i < quantity; ++i) {
        if ((address + i) % 2 == 1)
            bytes[i / 8] = static_cast<char>(byteAt(bytes, i / 8) | 1 << i % 8);
    }
    return bytes;
}

QByteArray registers(int address, int quantity)
{
    QByteArray bytes;
    for (int i = address; i < address + quantity; ++i)
        bytes.append(static_cast<char>(i >> 8)).append(static_cast<char>(i));
    return bytes;
}

QByteArray withItsCrc(QByteArray frame)
{
    const quint16 crc = modbusCrc(reinterpret_cast<const unsigned char*>(frame.constData()),
                                  static_cast<int>(frame.size()));
    return frame.append(static_cast<char>(crc)).append(static_cast<char>(crc >> 8));
}

} // namespace

QByteArray ImmediateSlave::take(char byte)
{
    m_request.append(byte);
    if (m_request.size() < SHORTEST_REQUEST || m_request.size() < lengthOfRequest())
        return QByteArray();
    const QByteArray answer = reply();
    m_request.clear();
    return answer;
}

int ImmediateSlave::lengthOfRequest() const
{
    const int function = byteAt(m_request, 1);
    const bool hasValues = function == 15 || function == 16;
    return hasValues ? BYTES_AROUND_VALUES + byteAt(m_request, BYTE_COUNT_AT) : SHORTEST_REQUEST;
}

QByteArray ImmediateSlave::reply() const
{
    const int function = byteAt(m_request, 1);
    if (function > 4)
        return withItsCrc(m_request.left(6));
    const int address = wordAt(m_request, 2);
    const int quantity = wordAt(m_request, 4);
    const QByteArray values =
        function <= 2 ? coils(address, quantity) : registers(address, quantity);
    return withItsCrc(m_request.left(2) + static_cast<char>(values.size()) + values);
}

} // namespace kx
