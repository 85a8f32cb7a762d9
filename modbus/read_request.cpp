#include "modbus/read_request.h"

#include "driver/wrapping.h"
#include "modbus/frame_bytes.h"
#include "modbus/frame_list.h"
#include "registers/register_types.h"

namespace
{

const int BROADCAST_STATION = 0;
const int FIRST_DATA_BYTE = 3; // after station, function and byte count
const int REPLY_OVERHEAD = 5;  // those three and the CRC

} // namespace

void getReadFrame(VARIABLE& job)
{
    if (job.station == BROADCAST_STATION)
        return;
    const RegisterType* const type = findRegisterType(job.regType);
    const bool readsBits = type && type->registerClass == BIT_CLASS;

    // The job given may lie in a frame of the list, which appending moves.
    FRAME_PRO& request = appendFrame(job);
    const VARIABLE& built = request.job;
    FrameBytes bytes(request);
    bytes.putHeader(built.station, readsBits ? READ_COILS : READ_HOLDING_REGISTERS,
                    modbusNumber(type, built.address), built.count);
    bytes.putCrc(SHORT_FRAME_LENGTH - CRC_LENGTH);

    const int dataBytes =
        readsBits ? packedBytes(built.count) : wrapMul(built.count, BYTES_PER_REGISTER);
    request.sendLen = SHORT_FRAME_LENGTH;
    request.recvLen = wrapAdd(dataBytes, REPLY_OVERHEAD);
    request.frameFunc = FIRST_DATA_BYTE;
    request.dataLen = readsBits ? built.count : dataBytes;
}
