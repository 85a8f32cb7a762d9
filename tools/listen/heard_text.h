/// What was heard, as lines and as JSON. Pure functions.
#ifndef KX_LISTEN_HEARD_TEXT_H
#define KX_LISTEN_HEARD_TEXT_H

#include "listen/heard_exchange.h"
#include "listen/heard_values.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

namespace kx
{

/// What a request asks for: "read D100:4 = 1 2 3 4, D200 = 5", "function 43"; without values when
/// they are not known.
QString actionText(const HeardExchange& exchange);

/// "1 0 17", bits in groups of eight: "10110000 01".
QString valuesText(const HeardRange& range);

/// "2026-11-22T10:11:12.013 1 read D100:4 = 1234 0 17 5, 8.2 ms"; "... 3 write Y10 = 1: exception
/// 2 (illegal data address), 3.1 ms"; "... 7 bytes in no frame: 01 03 ...".
/// @param time of the request's last byte or, without a request, of the first byte
QString heardRow(const HeardExchange& exchange, const QDateTime& time);

/// The frames of it, with their fields named.
QStringList heardFrames(const HeardExchange& exchange);

QJsonObject heardJson(const HeardExchange& exchange, const QDateTime& time);

/// When it was heard, as `time` above, in microseconds.
qint64 heardAt(const HeardExchange& exchange);

/// Microseconds as milliseconds with one decimal: "8.2".
QString millisecondsText(qint64 microseconds);

} // namespace kx

#endif
