/// The bytes of a request under construction, and what replies share with them.
#ifndef TARVELAN_MODBUS_FRAME_BYTES_H
#define TARVELAN_MODBUS_FRAME_BYTES_H

#include "driver/records.h"

/// Modbus function codes of the requests.
enum ModbusFunction {
    READ_COILS = 1,
    READ_HOLDING_REGISTERS = 3,
    WRITE_SINGLE_COIL = 5,
    WRITE_SINGLE_REGISTER = 6,
    WRITE_MULTIPLE_COILS = 15,
    WRITE_MULTIPLE_REGISTERS = 16
};

/// Length of reads, single writes and of every write's echo.
const int SHORT_FRAME_LENGTH = 8;
const int CRC_LENGTH = 2;
const int BYTES_PER_REGISTER = 2;

/// Writes into `FRAME_PRO::frame`. A byte before its start or past its end is
/// not written.
class FrameBytes
{
public:
    explicit FrameBytes(FRAME_PRO& target) : m_frame(target.frame) {}

    void put(int index, int byte)
    {
        if (index >= 0 && index < FRAME_SIZE)
            m_frame[index] = static_cast<unsigned char>(byte);
    }

    /// High byte first.
    void putWord(int index, int word)
    {
        put(index, word >> 8);
        put(index + 1, word);
    }

    /// Station, function, Modbus address and quantity or value: bytes 0 to 5.
    void putHeader(int station, ModbusFunction function, int address, int word);

    /// CRC of all bytes before `index`, low byte first.
    void putCrc(int index);

private:
    unsigned char* m_frame;
};

/// Bytes that `bits` bits fill, for a `bits` of 0 or more.
inline int packedBytes(int bits)
{
    return bits / 8 + (bits % 8 != 0 ? 1 : 0);
}

#endif
