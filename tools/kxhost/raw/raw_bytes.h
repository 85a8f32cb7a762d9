/// Bytes as people type them. Pure functions.
#ifndef KX_KXHOST_RAW_RAW_BYTES_H
#define KX_KXHOST_RAW_RAW_BYTES_H

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

namespace kx
{

/// Reads bytes in hexadecimal: "01 03 00", "0x01,0x03", "010300" and mixtures; a digit alone is a
/// byte, too.
/// @return false and one line in `*error` when there are none, or other characters or half bytes
bool parseRawBytes(const QStringList& words, QByteArray* bytes, QString* error);

} // namespace kx

#endif
