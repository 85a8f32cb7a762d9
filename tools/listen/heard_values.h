/// What requests ask for and replies bring, in the controller's own addresses. Pure functions.
#ifndef KX_LISTEN_HEARD_VALUES_H
#define KX_LISTEN_HEARD_VALUES_H

#include "listen/heard_exchange.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace kx
{

/// Consecutive addresses of one register type, or Modbus numbers that no type has.
struct HeardRange {
    QString first; ///< "D100", "X17", "32CV200", "coil 5000", "input register 7"
    int count = 0; ///< values
    bool isBits = false;
    QList<qint64> values; ///< as many as `count`, or none when they are not known
};

enum class HeardAction { Read, Write, Other };

HeardAction actionOf(const QByteArray& request);

/// The ranges that a request of the functions 1 to 6, 15 and 16 asks for or writes; with the
/// values that it writes or, when it was answered, that the reply to a read brings.
QList<HeardRange> rangesOf(const HeardExchange& exchange);

} // namespace kx

#endif
