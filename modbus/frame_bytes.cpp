#include "modbus/frame_bytes.h"

#include "modbus/crc.h"

#include <algorithm>
#include <cstring>

// The payload is written once: a frame made zero as a whole would write it twice.
FRAME_PRO blankFrame(const VARIABLE& job)
{
    FRAME_PRO request;
    std::memset(request.frame, 0, sizeof request.frame);
    request.sendLen = 0;
    request.recvLen = 0;
    request.frameFunc = 0;
    request.dataLen = 0;
    request.reserved = 0;
    request.job = job;
    return request;
}

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
