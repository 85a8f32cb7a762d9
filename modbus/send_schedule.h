/// Which request goes next, and what becomes of a job once it is answered.
#ifndef TARVELAN_MODBUS_SEND_SCHEDULE_H
#define TARVELAN_MODBUS_SEND_SCHEDULE_H

#include "driver/export.h"
#include "driver/records.h"

extern "C" {

/// Hands out the next request. While a request waits for its reply, the same one
/// is handed out again. Otherwise the order of preference is: a requested recipe
/// transfer; a write while fewer than 5 writes and condition reads have gone in a
/// row; a condition read while fewer than 3 have; the next cyclic read.
///
/// A recipe write whose next block lacks values ends here, since a controller must not
/// get what nobody gave: there is no recipe buffer, the block begins before the buffer,
/// or it holds more coils than a payload, 1024, but no more than a frame. `rcpIndex`
/// becomes 0, then the request byte is cleared, and this call goes on as if the byte had
/// not been set. Nothing else tells of it, and blocks before it have been sent.
///
/// Communication thread only; not from inside the value-change function, which
/// it never calls. Locks the runtime's mutex briefly to read the two recipe
/// request bytes, so the caller must not hold it.
/// @param out not null, the caller's. With result 1 the whole record is copied:
///            transmit `sendLen` bytes of `frame`, then collect up to `recvLen` bytes
///            of reply; with result 0 it is untouched.
/// @return 1 when `*out` holds a request, 0 when there is nothing to send; when the
///         next job yields no request (a read of station 0, a recipe download of an
///         unknown type); or once, without a cyclic read, after five writes or three
///         condition reads in a row, although more may wait: ask again
KX_EXPORT int intf_getSendFrame(FRAME_PRO* out);
}

/// Retires the job that was answered or given up: drops the write, rotates the
/// cyclic reads, reports and drops the condition read, steps the recipe. Called
/// when `frameList` has become empty.
KX_EXPORT void dealListWhenFinish();

#endif
