/// Requests as the driver hands them out.
#ifndef KX_TESTS_TOOLS_EXCHANGE_REPLIES_REQUEST_FRAMES_H
#define KX_TESTS_TOOLS_EXCHANGE_REPLIES_REQUEST_FRAMES_H

#include "support/driver_fixture.h"

#include <cstring>

namespace kx
{

inline FRAME_PRO requestOf(const QByteArray& frame, int recvLen)
{
    FRAME_PRO request = FRAME_PRO();
    std::memcpy(request.frame, frame.constData(), static_cast<size_t>(frame.size()));
    request.sendLen = static_cast<int>(frame.size());
    request.recvLen = recvLen;
    return request;
}

} // namespace kx

#endif
