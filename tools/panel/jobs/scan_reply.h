/// Whether a station answered a scan, and with what. Pure functions.
#ifndef KX_PANEL_JOBS_SCAN_REPLY_H
#define KX_PANEL_JOBS_SCAN_REPLY_H

#include "addresses/export.h"
#include "exchange/replies/exchange_record.h"

#include <QtCore/QJsonObject>
#include <QtCore/QMetaType>
#include <QtCore/QString>

namespace kx
{

enum class ScanAnswer {
    None,
    Value,     ///< the register that was asked for
    Exception, ///< a refusal, which is an answer, too
    Other      ///< some other frame with its right CRC, late ones included
};

struct ScanReply {
    ScanAnswer answer = ScanAnswer::None;
    int station = 0; ///< who answered; an Other reply may be a late one
    int exceptionCode = 0;
    QString fault; ///< "exception 2 (illegal data address)", "a wrong byte count"
};

/// A reply counts when its CRC is right, whatever it says: but for a gateway's, which is nobody's.
KXRUNTIME_EXPORT ScanReply scanReplyOf(const ExchangeRecord& record);

/// "station 5: answered with exception 2 (illegal data address)".
KXRUNTIME_EXPORT QString scanRow(const ScanReply& reply);
KXRUNTIME_EXPORT QJsonObject scanJson(const ScanReply& reply);

} // namespace kx

Q_DECLARE_METATYPE(kx::ScanReply)

#endif
