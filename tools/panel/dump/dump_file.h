/// The values of controllers in a file that people can read and compare, and that tells when
/// it is damaged.
///
///     kx-dump 1
///     # Values of controllers; X and Y are octal. Any change of a value is found.
///     read 2026-11-22T20:31:34.123Z to 2026-11-22T20:31:36.456Z
///     station 1
///     X10 1
///     D100 1234
///     32CV200 4294967295
///     end 3 09f2...
///
/// The first line names the format and its version, `read` when the reading began and ended, in
/// UTC. A line for each address, rising by station, type in the catalogue's order and address.
/// Values are unsigned decimals. The last line has the count of the values and the SHA-256 of
/// all lines before it, each with one "\n" behind it; blank lines, lines that begin with # and
/// blanks at the end of a line do not count.
#ifndef KX_PANEL_DUMP_DUMP_FILE_H
#define KX_PANEL_DUMP_DUMP_FILE_H

#include "addresses/address_text.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

namespace kx
{

/// The most values that fit into a file that is read again.
const int MOST_DUMPED_VALUES = 800000;

struct Dump {
    QDateTime begun; ///< of the reading
    QDateTime ended;
    QList<Assignment> runs; ///< as ControllerValues::runs()
};

/// The file's text.
/// @param dump at most MOST_DUMPED_VALUES, and one at least
QByteArray dumpText(const Dump& dump);

/// Reads what dumpText() made. A text that is damaged, cut off or of another version is refused
/// as a whole.
/// @return false and one line in `*error` that names the file, line and column; `*dump` is then
///         unchanged
bool parseDump(const QByteArray& text, const QString& path, Dump* dump, QString* error);

/// The same for a file, as readTextFile().
bool loadDump(const QString& path, Dump* dump, QString* error);

} // namespace kx

#endif
