#include "panel/plan/piece_request.h"

#include "addresses/request_limits.h"
#include "registers/register_types.h"

namespace kx
{

PlannedRequest requestFor(const AddressRange& piece)
{
    PlannedRequest request;
    request.station = piece.station;
    request.type = piece.type;
    request.address = piece.address;
    request.count = piece.driverCount();
    request.bytesSent = READ_REQUEST_BYTES;
    request.bytesExpected = READ_REPLY_BYTES
                            + (piece.type->registerClass == BIT_CLASS
                                   ? (request.count + COILS_PER_BYTE - 1) / COILS_PER_BYTE
                                   : request.count * BYTES_PER_REGISTER);
    return request;
}

} // namespace kx
