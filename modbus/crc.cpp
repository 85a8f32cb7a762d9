#include "modbus/crc.h"

#include <QtCore/QtEndian>

// The polynomial is (x + 1)(x^15 + x + 1), so its two factors can be settled apart.
//
// Modulo the second factor, called q, x^15 = x + 1; squared twice, x^60 = x^4 + 1,
// so that x^64 = x^8 + x^4: eight more bytes of message fold into a 64-bit word with
// two shifts. Modulo x + 1 all that matters is the parity of the message's bits, and
// adding q, which is odd, flips the parity without changing anything modulo q.
//
// Bit 0 of a word is the highest power of x, so multiplying shifts right.

namespace
{

const unsigned int INITIAL_VALUE = 0xFFFF;
const unsigned int Q_REFLECTED = 0xC001;
const int WORD_SIZE = 8;

quint64 wordAt(const unsigned char* bytes)
{
    return qFromLittleEndian<quint64>(bytes);
}

/// word * x^64 modulo q. The bits shifted out stand for powers from x^64 on and
/// are folded once more.
quint64 timesX64(quint64 word)
{
    const quint64 out8 = word & 0xFF;
    const quint64 out4 = word & 0xF;
    return word >> 8 ^ word >> 4 ^ out8 << 48 ^ out8 << 52 ^ out4 << 52 ^ out4 << 56;
}

/// One byte more, modulo q: x^16 = x^2 + x.
unsigned int withByte(unsigned int crc, unsigned int byte)
{
    const unsigned int x = (crc ^ byte) & 0xFF;
    return crc >> 8 ^ x << 6 ^ x << 7;
}

bool isOdd(quint64 bits)
{
    for (int half = 32; half > 0; half /= 2)
        bits ^= bits >> half;
    return bits & 1;
}

} // namespace

quint16 modbusCrc(const unsigned char* bytes, int length)
{
    quint64 parity = 0;
    unsigned int crc = INITIAL_VALUE;
    int i = 0;
    if (length >= 2 * WORD_SIZE) {
        parity = wordAt(bytes);
        quint64 folded = parity ^ INITIAL_VALUE;
        for (i = WORD_SIZE; i <= length - WORD_SIZE; i += WORD_SIZE) {
            const quint64 word = wordAt(bytes + i);
            parity ^= word;
            folded = timesX64(folded) ^ word;
        }
        crc = 0;
        for (int byte = 0; byte < WORD_SIZE; ++byte)
            crc = withByte(crc, static_cast<unsigned int>(folded >> 8 * byte));
    }
    for (; i < length; ++i) {
        parity ^= bytes[i];
        crc = withByte(crc, bytes[i]);
    }
    // The initial value has an even number of bits.
    if (isOdd(parity ^ crc))
        crc ^= Q_REFLECTED;
    return static_cast<quint16>(crc);
}
