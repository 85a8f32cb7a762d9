#include "modbus/frame_bytes.h"

#include "modbus/crc.h"

#include <algorithm>

void FrameBytes::putHeader(int station, ModbusFunction function, int address, int word)
{
    put(0, station);
    put(1, function);
    putWord(2, address);
    putWord(4, word);
}

void FrameBytes::putCrc(int index)
{
    const quint16 crc = modbusCrc(m_frame, std::min(index, FRAME_SIZE));
    put(index, crc & 0xFF);
    put(index + 1, crc >> 8);
}
