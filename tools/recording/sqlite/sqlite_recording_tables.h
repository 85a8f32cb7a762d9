#ifndef KX_RECORDING_SQLITE_SQLITE_RECORDING_TABLES_H
#define KX_RECORDING_SQLITE_SQLITE_RECORDING_TABLES_H

#include "recording/sqlite/sqlite_connection.h"

namespace kx
{

/// Makes the tables and the view of a recording, which sqlite_recording_writer.h shows, in an
/// empty database; leaves them in one that has them. False, and what is wrong in `*fault`, when
/// the database holds something else or cannot be written.
bool prepareTables(const SqliteConnection& connection, QString* fault);

} // namespace kx

#endif
