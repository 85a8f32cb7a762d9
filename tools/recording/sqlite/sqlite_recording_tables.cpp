#include "recording/sqlite/sqlite_recording_tables.h"

#include "system/translated_text.h"

#include <QtCore/QStringList>

namespace kx
{

namespace
{

// A sample's value has no type of its own, so that SQLite keeps what it gets.
const char* const TABLES[] = {
    "CREATE TABLE IF NOT EXISTS tags(id INTEGER PRIMARY KEY, name TEXT NOT NULL, "
    "station INTEGER NOT NULL, address TEXT NOT NULL, unit TEXT NOT NULL, "
    "UNIQUE(name, station, address, unit))",
    "CREATE TABLE IF NOT EXISTS samples(time INTEGER NOT NULL, "
    "tag INTEGER NOT NULL REFERENCES tags(id), value)",
    "CREATE TABLE IF NOT EXISTS gaps(id INTEGER PRIMARY KEY, "
    "tag INTEGER NOT NULL REFERENCES tags(id), since INTEGER NOT NULL, until INTEGER, "
    "reason TEXT NOT NULL, behind INTEGER NOT NULL)",
    "CREATE VIEW IF NOT EXISTS recording AS "
    "SELECT strftime('%Y-%m-%dT%H:%M:%fZ', samples.time / 1000.0, 'unixepoch') AS time, "
    "name, station, address, unit, value, NULL AS gap, NULL AS until "
    "FROM samples JOIN tags ON tags.id = samples.tag UNION ALL "
    "SELECT strftime('%Y-%m-%dT%H:%M:%fZ', since / 1000.0, 'unixepoch'), "
    "name, station, address, unit, NULL, reason, "
    "strftime('%Y-%m-%dT%H:%M:%fZ', until / 1000.0, 'unixepoch') "
    "FROM gaps JOIN tags ON tags.id = gaps.tag",
};

} // namespace

bool prepareTables(const SqliteConnection& connection, QString* fault)
{
    const QString count = QStringLiteral("SELECT count(*) FROM sqlite_master");
    if (!connection.run(count, fault)) {
        *fault = Text::tr("%1; name another file").arg(*fault);
        return false;
    }
    const qint64 tables = connection.number(count);
    const qint64 application = connection.number(QStringLiteral("PRAGMA application_id"));
    if (tables != 0 && application != RECORDING_APPLICATION) {
        *fault = Text::tr("it holds something else; name another file");
        return false;
    }
    const QStringList settings = {
        QStringLiteral("PRAGMA application_id = %1").arg(RECORDING_APPLICATION),
        QStringLiteral("PRAGMA journal_mode = WAL"),
        // A power failure may take the last commits, but leaves the file in order.
        QStringLiteral("PRAGMA synchronous = NORMAL")};
    for (const QString& setting : settings) {
        if (!connection.run(setting, fault))
            return false;
    }
    for (const char* const table : TABLES) {
        if (!connection.run(QLatin1String(table), fault))
            return false;
    }
    return true;
}

} // namespace kx
