/// Why something was not done, as a value. Pure functions.
#ifndef KX_EXCHANGE_FAILURE_H
#define KX_EXCHANGE_FAILURE_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "exchange/replies/exchange_record.h"

namespace kx
{

enum class FailureKind {
    None, ///< nothing has failed

    // What came back for a request:
    NoReply,        ///< nothing until the time-out
    ShortReply,     ///< fewer bytes than expected until the time-out
    BadReply,       ///< no frame in the bytes
    Exception,      ///< the station refused; see Failure::exceptionCode
    WrongByteCount, ///< the station's reply, but for its byte count
    ForeignReply,   ///< only replies of other requests came
    Broadcast,      ///< station 0: no station answers
    NotWhole,       ///< the request was not whole and was not transmitted
    NeverSilent,    ///< the line did not fall silent, so the request was not transmitted
    NotTaken,       ///< the reply was good, and the driver did not take it

    // What became of the line, or of the driver:
    CannotOpen,        ///< the line, or the driver's library, was never open
    LineLost,          ///< the line was open, and is no more
    SessionEnded,      ///< the session stopped, or is gone, before it was done
    DriverInitialised, ///< the driver was set up anew, which drops what waits
    DriverInUse,       ///< another session of this program has the driver

    // What is wrong with the work itself:
    Aborted,     ///< as asked for
    OutOfRange,  ///< no such station, address or value
    TooLong,     ///< does not fit into a request
    NotWritable, ///< the addresses can only be read
    QueueFull    ///< too much waits
};

struct Failure {
    FailureKind kind = FailureKind::None;
    int station = 0;       ///< 0: not of one station
    AddressRange range;    ///< without a type: not of addresses
    int exceptionCode = 0; ///< with FailureKind::Exception
    /// The reason, one line without station and addresses: "no reply". Empty for None.
    QString text;

    bool isNone() const { return kind == FailureKind::None; }
};

/// A failure that is not of addresses.
KXRUNTIME_EXPORT Failure failureOf(FailureKind kind, const QString& text);

/// Of the request's station and addresses; None when the driver accepted the reply. A
/// request that the driver repeats has not failed for good, and still gives its reason.
KXRUNTIME_EXPORT Failure failureOf(const ExchangeRecord& record);

/// What came back, in words: "good", "no reply", "exception 2 (illegal data address)".
KXRUNTIME_EXPORT QString reasonText(ReplyKind kind, int exceptionCode);

/// The same of a whole exchange, in which a reply in another protocol is known: "bad reply, a frame
/// of Modbus TCP".
KXRUNTIME_EXPORT QString reasonText(const ExchangeRecord& record);

/// "exception 2 (illegal data address)".
KXRUNTIME_EXPORT QString exceptionText(int code);

} // namespace kx

Q_DECLARE_METATYPE(kx::Failure)
Q_DECLARE_METATYPE(kx::FailureKind)

#endif
