/// What stands in a reply. Pure functions.
#ifndef KX_KXHOST_RAW_RAW_VALUES_H
#define KX_KXHOST_RAW_RAW_VALUES_H

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace kx
{

/// "read holding registers"; "unknown" of a function without a name.
QString functionName(int function);

/// What the reply holds behind station and function, as JSON has it: coils or registers, the code
/// of an exception, address and value or quantity, or data in hexadecimal.
/// @param request how many coils the reply has: all bits of its bytes when it does not say
/// @param frame   whole: station to CRC
QJsonObject rawValues(const QByteArray& request, const QByteArray& frame);

/// The same in words: "registers 1234 5", "exception 2 (illegal data address)".
QString rawValuesText(const QByteArray& request, const QByteArray& frame);

} // namespace kx

#endif
