#include "modbus/write_request.h"

#include "driver/wrapping.h"
#include "modbus/frame_bytes.h"
#include "modbus/frame_list.h"
#include "registers/register_types.h"

#include <algorithm>

namespace
{

const int FIRST_VALUE_BYTE = 7; // after station, function, address, quantity, byte count
const int COILS_PER_BYTE = 8;
const int DOUBLE_WORD_BYTES = 4;
const int COIL_ON = 0xFF00;

int payloadByte(const VARIABLE& job, int index)
{
    return index < PAYLOAD_SIZE ? job.data[index] : 0;
}

// The sum of `bits` payload bytes, each shifted to its place; kept to 8 bits
// when it is put into the frame.
int packedCoils(const VARIABLE& job, int firstCoil, int bits)
{
    int sum = 0;
    for (int bit = 0; bit < bits; ++bit)
        sum += payloadByte(job, firstCoil + bit) << bit;
    return sum;
}

// Returns the number of value bytes. The last byte takes only the coils past
// the last multiple of 8: none when the count is one.
int putCoils(FrameBytes& bytes, const VARIABLE& job)
{
    const int byteCount = packedBytes(job.count);
    const int last = byteCount - 1;
    for (int i = 0; i < std::min(byteCount, FRAME_SIZE); ++i) {
        const int bits = i == last ? job.count % COILS_PER_BYTE : COILS_PER_BYTE;
        bytes.put(FIRST_VALUE_BYTE + i, packedCoils(job, i * COILS_PER_BYTE, bits));
    }
    bytes.put(FIRST_VALUE_BYTE - 1, byteCount);
    return byteCount;
}

// Each value is turned from least to most significant byte first.
void putValues(FrameBytes& bytes, const VARIABLE& job, int values, int valueSize)
{
    for (int i = 0; i < std::min(values, FRAME_SIZE / valueSize); ++i) {
        const int first = i * valueSize;
        for (int byte = 0; byte < valueSize; ++byte)
            bytes.put(FIRST_VALUE_BYTE + first + byte,
                      payloadByte(job, first + valueSize - 1 - byte));
    }
}

int putRegisters(FrameBytes& bytes, const VARIABLE& job, RegisterClass registerClass)
{
    if (registerClass == DOUBLE_WORD_CLASS)
        putValues(bytes, job, job.count / 2, DOUBLE_WORD_BYTES);
    else
        putValues(bytes, job, job.count, BYTES_PER_REGISTER);
    const int byteCount = wrapMul(job.count, BYTES_PER_REGISTER);
    bytes.put(FIRST_VALUE_BYTE - 1, byteCount);
    return byteCount;
}

int putSingleWrite(FrameBytes& bytes, const VARIABLE& job, const RegisterType* type)
{
    const bool isCoil = type->registerClass == BIT_CLASS;
    const int coil = job.data[0] == 1 ? COIL_ON : 0;
    const int value = job.data[0] | job.data[1] << 8;
    bytes.putHeader(job.station, isCoil ? WRITE_SINGLE_COIL : WRITE_SINGLE_REGISTER,
                    modbusNumber(type, job.address), isCoil ? coil : value);
    return SHORT_FRAME_LENGTH;
}

int putMultipleWrite(FrameBytes& bytes, const VARIABLE& job, const RegisterType* type)
{
    const bool areCoils = type->registerClass == BIT_CLASS;
    bytes.putHeader(job.station, areCoils ? WRITE_MULTIPLE_COILS : WRITE_MULTIPLE_REGISTERS,
                    modbusNumber(type, job.address), job.count);
    const int byteCount =
        areCoils ? putCoils(bytes, job) : putRegisters(bytes, job, type->registerClass);
    return wrapAdd(byteCount, FIRST_VALUE_BYTE + CRC_LENGTH);
}

} // namespace

void getWriteFrame(VARIABLE& job)
{
    const RegisterType* const type = findRegisterType(job.regType);
    if (!type)
        return;
    // The job given may lie in a frame of the list, which appending moves.
    FRAME_PRO& request = appendFrame(job);
    const VARIABLE& built = request.job;
    FrameBytes bytes(request);
    request.sendLen = built.count == 1 ? putSingleWrite(bytes, built, type)
                                       : putMultipleWrite(bytes, built, type);
    bytes.putCrc(request.sendLen - CRC_LENGTH);
    request.recvLen = SHORT_FRAME_LENGTH;
}
