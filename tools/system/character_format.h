/// The options of the programs that say how a serial line carries characters.
#ifndef KX_SYSTEM_CHARACTER_FORMAT_H
#define KX_SYSTEM_CHARACTER_FORMAT_H

#include <QtCore/QString>

namespace kx
{

/// Reads the value of --parity: none, even or odd, or the first letter, in either case, as
/// 'N', 'E' or 'O'. False and one line in `*error` for anything else; `*parity` is then
/// untouched.
bool parseParity(const QString& typed, char* parity, QString* error);

/// Reads the value of --data-bits. False and one line in `*error` when it is not 8.
bool parseDataBits(const QString& typed, QString* error);

} // namespace kx

#endif
