#ifndef TARVELAN_MODBUS_REPLY_CHECK_H
#define TARVELAN_MODBUS_REPLY_CHECK_H

#include "driver/export.h"

/// Results of check_rcv_data().
enum ReplyCheck {
    REPLY_BAD = 0,         ///< wrong length or CRC
    REPLY_WITH_DATA = 1,   ///< good reply to a read
    REPLY_ACKNOWLEDGES = 2 ///< good reply without data to store
};

/// Tests a reply against the frame on the wire, the first of `frameList`, by
/// length and CRC alone: station, function code and byte count are not looked
/// at. A reply of one byte is bad, and so is any reply when no frame waits.
/// @param buf `len` bytes as received; not changed, stays the caller's
KX_EXPORT int check_rcv_data(unsigned char* buf, int len);

#endif
