#include "data/read_frame.h"

ReadRequest::ReadRequest(const FRAME_PRO& frame)
    : station(frame.job.station),
      type(findRegisterType(frame.job.regType)),
      address(frame.job.address),
      firstDataByte(frame.frameFunc),
      dataLength(frame.dataLen)
{
}
