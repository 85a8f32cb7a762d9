/// The memories of simulated controllers as a table that people can edit and compare:
///
///     address,value
///     X17,1
///     D100,1234
///     32CV200,65536
///
/// It is read as csv_table.h has it: separators, comments and encodings of spreadsheets
/// are fine. Addresses and values are those of assignments, so D100@2 names a station, a
/// value may be negative or 0x hexadecimal, and D100:3 takes "1,2,3" in quotes.
#ifndef KX_KXSIM_MEMORY_MEMORY_FILE_H
#define KX_KXSIM_MEMORY_MEMORY_FILE_H

#include "kxsim/memory/stations.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace kxsim
{

/// Sets the values of a file, in all stations where it names none. They are no presets.
/// Returns false and one line in `*error` that names file and line when the file cannot
/// be read or a row is wrong, has an address of a row before it, or names a station that
/// is not simulated; no value is set then.
bool loadMemory(const QString& path, Stations* stations, QString* error);

/// The same for text that has been read; `path` is only named in errors.
bool parseMemory(const QByteArray& text, const QString& path, Stations* stations, QString* error);

/// All values but 0, an address a row, in the order of stations, types and addresses;
/// with their stations when there are several. Where all are 0 the row of D0 says so.
QByteArray memoryText(Stations* stations);

} // namespace kxsim

#endif
