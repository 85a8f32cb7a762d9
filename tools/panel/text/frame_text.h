/// Requests and replies with their fields named. Pure functions.
#ifndef KX_PANEL_TEXT_FRAME_TEXT_H
#define KX_PANEL_TEXT_FRAME_TEXT_H

#include "addresses/export.h"
#include "exchange/replies/exchange_record.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

/// "01 03 00 64".
KXRUNTIME_EXPORT QString hexText(const QByteArray& bytes);

/// "station 01, function 03, address 00 64, quantity 00 04, CRC 05 D6".
KXRUNTIME_EXPORT QString requestText(const QByteArray& request);

/// "station 01, function 03, byte count 02, data 04 D2, CRC 3A D9"; bytes that are
/// no whole frame are shown without names.
KXRUNTIME_EXPORT QString replyText(const QByteArray& reply);

/// What came back and what the driver made of it: "good, accepted", "no reply,
/// repeated", "exception 2 (illegal data address), failed: 5,1,100,D".
KXRUNTIME_EXPORT QString outcomeText(const ExchangeRecord& record);

/// One time-stamped line for the request, one for the reply: what came, what is wrong with it if
/// anything is ("CRC 9B 37 instead of 9B 36"), and its outcome.
KXRUNTIME_EXPORT QStringList exchangeRows(const ExchangeRecord& record);

/// The same as an object. "replyFaults" is what is wrong with what came.
KXRUNTIME_EXPORT QJsonObject exchangeJson(const ExchangeRecord& record);

} // namespace kx

#endif
