/// A request's bytes as the driver's record of it. A pure function.
#ifndef KX_EXCHANGE_REPLIES_DRIVER_REQUEST_H
#define KX_EXCHANGE_REPLIES_DRIVER_REQUEST_H

#include "driver/records.h"

#include <QtCore/QByteArray>

namespace kx
{

/// @param request station to CRC, the CRC being optional; of longer ones the first FRAME_SIZE bytes
/// @return its bytes, their number and how many bytes a good reply has, which is 0 where station,
///         function, address and quantity do not tell
FRAME_PRO driverRequest(const QByteArray& request);

} // namespace kx

#endif
