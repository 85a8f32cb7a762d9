#include "relay/paced_wire.h"

namespace kx
{

namespace
{

const qint64 NANOSECONDS = 1000000000;

} // namespace

PacedWire::PacedWire(int baud, int bitsPerCharacter) : m_baud(baud), m_bits(bitsPerCharacter) {}

qint64 PacedWire::timeOf(qint64 characters) const
{
    return characters * m_bits * NANOSECONDS / m_baud;
}

void PacedWire::send(const QByteArray& bytes, qint64 now)
{
    if (now > m_burstStart + timeOf(m_burstLength)) {
        m_burstStart = now;
        m_burstLength = 0;
    }
    for (const char byte : bytes) {
        const qint64 start = m_burstStart + timeOf(m_burstLength);
        ++m_burstLength;
        m_onTheWay.push_back({byte, start, m_burstStart + timeOf(m_burstLength)});
    }
}

PacedWire::Character PacedWire::take()
{
    const Character next = m_onTheWay.front();
    m_onTheWay.pop_front();
    return next;
}

} // namespace kx
