#ifndef KX_RECORDING_SQLITE_SQLITE_CONNECTION_H
#define KX_RECORDING_SQLITE_SQLITE_CONNECTION_H

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>

namespace kx
{

/// What SQLite calls the kind of a file, PRAGMA application_id: "KXRC".
const int RECORDING_APPLICATION = 0x4B585243;

/// One connection of its own to a file, closed with it. Used in one thread.
class SqliteConnection
{
public:
    SqliteConnection() = default;
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    /// False, and what is wrong in `*fault`; also when Qt's plug-in for SQLite is missing.
    bool open(const QString& path, QString* fault);
    /// All queries must be gone.
    void close();

    QSqlDatabase database() const { return QSqlDatabase::database(m_name, false); }
    /// Runs a statement without results. False, and what is wrong in `*fault`.
    bool run(const QString& statement, QString* fault) const;
    /// The number that a statement gives; -1: none.
    qint64 number(const QString& statement) const;

private:
    QString m_name; ///< empty: not open
};

/// One line: what the database says, not what Qt says about it.
QString sqliteFault(const QSqlError& error);

} // namespace kx

#endif
