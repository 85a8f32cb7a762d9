#ifndef TARVELAN_DATA_REPLY_HANDLING_H
#define TARVELAN_DATA_REPLY_HANDLING_H

#include "driver/export.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Results of intf_dealRcvFrame().
enum ReplyResult {
    REPLY_IGNORED = 0,  ///< no request is outstanding; nothing changed
    REPLY_ACCEPTED = 1, ///< the request is retired
    REPLY_FAILED = 2,   ///< failed for good; all outstanding requests are dropped
    REPLY_RETRY = 8     ///< bad reply: intf_getSendFrame() hands the request out again
};

extern "C" {

/// Takes the reply to the request on the wire: checks length and CRC, stores
/// values, reports changes, settles writes, counts failures, retires the job.
///
/// Calls the value-change function, always before the new value is stored when a
/// read changed it, and after when a write was confirmed. From inside it,
/// intf_getData(), intf_setData() and intf_addConditionRead() may be called.
///
/// Time and memory grow with the count of the job that the request was built from:
/// a good reply or a settled write visits each of its addresses, and a read that
/// fails for good marks as many records, creating those that are missing (of bits
/// eight addresses apart, of 32CV one per register). Counts within the range of a
/// type keep that to some ten thousand.
/// Communication thread only; not from inside the value-change function. Locks the
/// runtime's mutex briefly when a recipe transfer ends, so the caller must not hold it;
/// never while the value-change function runs.
/// @param reply     the bytes received, station first, CRC last; empty when none
///                  came within the runtime's time-out. Not changed; stays the
///                  caller's.
/// @param errorText set to "", or with result 2 to "LENGTH,STATION,ADDRESS,TYPE": bytes
///                  in the reply, then of the failed request the station, the first
///                  address (decimal, also of X and Y) and the register type; stays the
///                  caller's
/// @return 0, 1, 2 or 8, see ReplyResult
KX_EXPORT int intf_dealRcvFrame(QByteArray& reply, QString& errorText);
}

#endif
