#include "modbus/crc.h"

namespace
{

const unsigned int INITIAL_VALUE = 0xFFFF;
const unsigned int REFLECTED_POLYNOMIAL = 0xA001;

} // namespace

quint16 modbusCrc(const unsigned char* bytes, int length)
{
    unsigned int crc = INITIAL_VALUE;
    for (int i = 0; i < length; ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1u) ? (crc >> 1) ^ REFLECTED_POLYNOMIAL : crc >> 1;
    }
    return static_cast<quint16>(crc);
}
