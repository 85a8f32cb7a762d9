#include "model/plain_driver.h"
#include "model/random_values.h"

namespace
{

QByteArray withFlippedBit(QByteArray bytes, int index)
{
    bytes[index] = static_cast<char>(bytes.at(index) ^ 0x10);
    return bytes;
}

} // namespace

QByteArray RandomValues::goodReply(const FRAME_PRO& frame)
{
    const QByteArray request(reinterpret_cast<const char*>(frame.frame), 8);
    if (m_random.chance(35) && m_lastReplies.contains(request))
        return m_lastReplies.value(request);
    QByteArray reply;
    for (int i = 0; i < frame.recvLen - 2; ++i)
        reply.append(static_cast<char>(dataByte()));
    // The driver looks at neither, so most replies carry what a controller would send.
    if (reply.size() > 2 && m_random.chance(80))
        reply.replace(0, 2, request.left(2));
    const unsigned int crc = PlainDriver::crc(
        reinterpret_cast<const unsigned char*>(reply.constData()), static_cast<int>(reply.size()));
    reply.append(static_cast<char>(crc & 0xFF));
    reply.append(static_cast<char>(crc >> 8));
    if (m_lastReplies.size() > 50)
        m_lastReplies.clear();
    m_lastReplies.insert(request, reply);
    return reply;
}

QByteArray RandomValues::reply(const FRAME_PRO& frame)
{
    if (frame.recvLen > 20000)
        return QByteArray();
    QByteArray reply = goodReply(frame);
    if (m_random.chance(80))
        return reply;
    switch (m_random.below(6)) {
    case 0:
        return QByteArray();
    case 1:
        return reply + '\0';
    case 2:
        return reply.left(m_random.below(static_cast<int>(reply.size())));
    case 3:
        return QByteArray::fromHex("0183028131"); // exception: illegal data address
    case 4:
        return QByteArray(1, '\1');
    default:
        return withFlippedBit(reply, m_random.below(static_cast<int>(reply.size())));
    }
}
