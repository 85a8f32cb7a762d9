#ifndef KX_EXCHANGE_REPLIES_EXCHANGE_RECORD_H
#define KX_EXCHANGE_REPLIES_EXCHANGE_RECORD_H

#include "driver/records.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace kx
{

/// What came back, as the runtime sees it.
enum class ReplyKind {
    Good,           ///< complete, of the station and function asked
    None,           ///< nothing until the time-out
    Short,          ///< fewer bytes than expected until the time-out
    Bad,            ///< no frame in the bytes
    Exception,      ///< the station refused; see exceptionCode
    WrongByteCount, ///< the station's reply, but for its byte count
    Foreign,        ///< only replies of other requests came
    Lost,           ///< the line was lost before a reply came
    Broadcast,      ///< station 0: no station answers
    NotSent,        ///< the request was not whole and was not transmitted
    NeverSilent     ///< the line did not fall silent, so the request was not transmitted
};

/// One request, what came back, and what the driver made of it.
struct ExchangeRecord {
    QByteArray request;
    QByteArray reply;          ///< bytes received since the request, the first 4096
    VARIABLE job = VARIABLE(); ///< the job that the request was built from
    ReplyKind replyKind = ReplyKind::None;
    int exceptionCode = 0;  ///< with ReplyKind::Exception
    int foreignReplies = 0; ///< thrown away while waiting, of whatever other request
    int result = 0;         ///< of intf_dealRcvFrame(), see ReplyResult
    QString errorText;      ///< with result 2
    bool repeated = false;  ///< the request had been sent before
    QDateTime sentAt;       ///< in UTC, as finishedAt
    QDateTime finishedAt;
    /// Microseconds from the request's last character to the reply's first; negative without
    /// a whole reply.
    qint64 turnaround = -1;
};

/// Of a gateway that cannot reach the station: in the station's name, but not by it.
inline bool isGatewayException(int code)
{
    const int noPath = 10;
    const int noAnswer = 11;
    return code == noPath || code == noAnswer;
}

/// The station lacks one of the addresses, or has not so many at once.
inline bool refusesAddresses(int code)
{
    const int illegalAddress = 2;
    const int illegalValue = 3;
    return code == illegalAddress || code == illegalValue;
}

} // namespace kx

Q_DECLARE_METATYPE(kx::ExchangeRecord)
Q_DECLARE_METATYPE(kx::ReplyKind)
Q_DECLARE_METATYPE(VARIABLE)

#endif
