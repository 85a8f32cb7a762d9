// One CRC of 255 bytes, in the form named by the argument, for counting
// instructions: see bench/count-arm-crc.
#include "modbus/crc.h"

#include <cstdio>

namespace
{

const int LENGTH = 255;

/// Without folding: modulo x^15 + x + 1 a byte at a time, and the parity apart.
quint16 byteByByte(const unsigned char* bytes, int length)
{
    unsigned int parity = 0;
    unsigned int crc = 0xFFFF;
    for (int i = 0; i < length; ++i) {
        parity ^= bytes[i];
        const unsigned int x = (crc ^ bytes[i]) & 0xFF;
        crc = crc >> 8 ^ x << 6 ^ x << 7;
    }
    for (unsigned int rest = parity ^ crc, half = 8; half > 0; half /= 2) {
        rest ^= rest >> half;
        if (half == 1 && (rest & 1))
            crc ^= 0xC001;
    }
    return static_cast<quint16>(crc);
}

quint16 bitByBit(const unsigned char* bytes, int length)
{
    unsigned int crc = 0xFFFF;
    for (int i = 0; i < length; ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? crc >> 1 ^ 0xA001 : crc >> 1;
    }
    return static_cast<quint16>(crc);
}

/// What the program costs without a CRC.
quint16 none(const unsigned char* bytes, int length)
{
    return static_cast<quint16>(bytes[0] + length);
}

} // namespace

int main(int argc, char** argv)
{
    unsigned char bytes[LENGTH];
    for (int i = 0; i < LENGTH; ++i)
        bytes[i] = static_cast<unsigned char>(7 * i);
    quint16 (*volatile form)(const unsigned char*, int) = none;
    switch (argc > 1 ? argv[1][0] : ' ') {
    case 'f':
        form = modbusCrc;
        break;
    case 'y':
        form = byteByByte;
        break;
    case 'b':
        form = bitByBit;
        break;
    default:
        break;
    }
    std::printf("%04x\n", static_cast<unsigned int>(form(bytes, LENGTH)));
    return 0;
}
