/// Requests and replies with their fields named. Pure functions.
#ifndef KX_PANEL_TEXT_FRAME_TEXT_H
#define KX_PANEL_TEXT_FRAME_TEXT_H

#include "exchange/replies/exchange_record.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

/// "01 03 00 64".
QString hexText(const QByteArray& bytes);

/// "station 01, function 03, address 00 64, quantity 00 04, CRC 05 D6".
QString requestText(const QByteArray& request);

/// "station 01, function 03, byte count 02, data 04 D2, CRC 3A D9"; bytes that are
/// no whole frame are shown without names.
QString replyText(const QByteArray& reply);

/// What came back and what the driver made of it: "good, accepted", "no reply,
/// repeated", "exception 2 (illegal data address), failed: 5,1,100,D".
QString outcomeText(const ExchangeRecord& record);

/// One time-stamped line for the request, one for the reply.
QStringList exchangeLines(const ExchangeRecord& record);

QJsonObject exchangeJson(const ExchangeRecord& record);

} // namespace kx

#endif
