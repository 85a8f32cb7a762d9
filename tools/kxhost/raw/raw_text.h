/// A raw exchange as it is printed. Pure functions.
#ifndef KX_KXHOST_RAW_RAW_TEXT_H
#define KX_KXHOST_RAW_RAW_TEXT_H

#include "kxhost/raw/raw_reply.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

struct RawExchanged {
    QByteArray request;      ///< as it was sent
    QByteArray received;     ///< all that came
    qint64 milliseconds = 0; ///< from the end of the request to the last byte
    bool isTcp = false;      ///< in Modbus TCP, which has no CRC and in which station 0 answers
};

/// The request, the reply and what it means, a row for each: "station 1, function 3 (read holding
/// registers), registers 1234 5; CRC right". Of bytes that are no frame what their CRC would be.
QStringList rawRows(const RawExchanged& exchanged);

/// Whether nobody answers the request.
bool isBroadcast(const QByteArray& request, bool isTcp);

QJsonObject rawJson(const RawExchanged& exchanged);

} // namespace kx

#endif
