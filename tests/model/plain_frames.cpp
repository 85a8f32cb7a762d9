#include "model/plain_driver.h"

namespace
{

const int FRAME_BYTES = 1024;

void put(FRAME_PRO& frame, int index, int byte)
{
    if (index >= 0 && index < FRAME_BYTES)
        frame.frame[index] = lowByte(byte);
}

void putCrc(FRAME_PRO& frame, int index)
{
    if (index > FRAME_BYTES)
        return;
    const unsigned int crc = PlainDriver::crc(frame.frame, index);
    put(frame, index, static_cast<int>(crc & 0xFF));
    put(frame, index + 1, static_cast<int>(crc >> 8));
}

int payload(const VARIABLE& job, int index)
{
    return index < 1024 ? job.data[index] : 0;
}

int modbusAddress(const VARIABLE& job)
{
    const qint64 base = modbusBase(job.regType, job.address);
    if (is32Type(job.regType))
        return wrapped(base + (static_cast<qint64>(job.address) - 100) * 2);
    return wrapped(base + job.address);
}

FRAME_PRO startFrame(const VARIABLE& job, int function)
{
    FRAME_PRO frame = FRAME_PRO();
    const int address = modbusAddress(job);
    put(frame, 0, job.station);
    put(frame, 1, function);
    put(frame, 2, address >> 8);
    put(frame, 3, address);
    put(frame, 4, job.count >> 8);
    put(frame, 5, job.count);
    frame.sendLen = 8;
    frame.recvLen = 8;
    frame.job = job;
    return frame;
}

int wholeBytes(int bits)
{
    return bits % 8 != 0 ? bits / 8 + 1 : bits / 8;
}

FRAME_PRO coilsFrame(const VARIABLE& job)
{
    FRAME_PRO frame = startFrame(job, 15);
    const int packed = wholeBytes(job.count);
    put(frame, 6, packed);
    // 7 + 1017 is past the frame's end.
    for (int j = 0; j < packed && j < 1017; ++j) {
        const int bits = j == packed - 1 ? job.count % 8 : 8;
        int sum = 0;
        for (int k = 0; k < bits; ++k)
            sum += payload(job, 8 * j + k) << k;
        put(frame, 7 + j, sum);
    }
    putCrc(frame, 7 + packed);
    frame.sendLen = packed + 9;
    return frame;
}

FRAME_PRO registersFrame(const VARIABLE& job)
{
    FRAME_PRO frame = startFrame(job, 16);
    put(frame, 6, 2 * (job.count & 0xFF));
    // 7 + 2 * 510 is past the frame's end.
    for (int i = 0; !is32Type(job.regType) && i < job.count && i < 510; ++i) {
        put(frame, 7 + 2 * i, payload(job, 2 * i + 1));
        put(frame, 8 + 2 * i, payload(job, 2 * i));
    }
    for (int i = 0; is32Type(job.regType) && i < job.count / 2 && i < 255; ++i) {
        for (int byte = 0; byte < 4; ++byte)
            put(frame, 7 + 4 * i + byte, payload(job, 4 * i + 3 - byte));
    }
    const int crcIndex = wrapped(7 + 2 * static_cast<qint64>(job.count));
    putCrc(frame, crcIndex);
    frame.sendLen = wrapped(static_cast<qint64>(crcIndex) + 2);
    return frame;
}

FRAME_PRO singleFrame(const VARIABLE& job, int function, int high, int low)
{
    FRAME_PRO frame = startFrame(job, function);
    put(frame, 4, high);
    put(frame, 5, low);
    putCrc(frame, 6);
    return frame;
}

} // namespace

unsigned int PlainDriver::crc(const unsigned char* bytes, int length)
{
    unsigned int crc = 0xFFFF;
    for (int i = 0; i < length; ++i) {
        crc ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    return crc;
}

int PlainDriver::checkReply(const unsigned char* bytes, int length) const
{
    const FRAME_PRO first = frameList.at(0);
    if (length == 0)
        return first.recvLen == 0 ? 2 : 0;
    if (length != first.recvLen || length == 1)
        return 0;
    const unsigned int expected = crc(bytes, (length - 2) & 0xFFFF);
    if (bytes[length - 1] != expected >> 8 || bytes[length - 2] != (expected & 0xFF))
        return 0;
    return first.dataLen != 0 ? 1 : 2;
}

void PlainDriver::readFrame(const VARIABLE& job)
{
    if (job.station == 0)
        return;
    const bool bits = isBitType(job.regType);
    FRAME_PRO frame = startFrame(job, bits ? 1 : 3);
    putCrc(frame, 6);
    const int bytes = bits ? wholeBytes(job.count) : wrapped(2 * static_cast<qint64>(job.count));
    frame.recvLen = wrapped(static_cast<qint64>(bytes) + 5);
    frame.frameFunc = 3;
    frame.dataLen = bits ? job.count : bytes;
    frameList.append(frame);
}

void PlainDriver::writeFrame(const VARIABLE& job)
{
    const bool bits = isBitType(job.regType);
    if (catalogueRow(job.regType) < 0)
        return;
    if (bits && job.count == 1)
        frameList.append(singleFrame(job, 5, job.data[0] == 1 ? 0xFF : 0, 0));
    else if (bits)
        frameList.append(coilsFrame(job));
    else if (job.count == 1)
        frameList.append(singleFrame(job, 6, job.data[1], job.data[0]));
    else
        frameList.append(registersFrame(job));
}
