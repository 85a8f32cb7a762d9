#include "recording/sqlite/sqlite_connection.h"

#include "system/translated_text.h"

#include <QtCore/QUuid>
#include <QtCore/QVariant>
#include <QtSql/QSqlQuery>

namespace kx
{

SqliteConnection::~SqliteConnection()
{
    close();
}

bool SqliteConnection::open(const QString& path, QString* fault)
{
    const QString driver = QStringLiteral("QSQLITE");
    if (!QSqlDatabase::isDriverAvailable(driver)) {
        *fault = Text::tr("Qt's plug-in for SQLite is missing; install libqt%1sql%1-sqlite, or "
                          "use a .csv file")
                     .arg(QT_VERSION_MAJOR);
        return false;
    }
    m_name = QUuid::createUuid().toString();
    QSqlDatabase database = QSqlDatabase::addDatabase(driver, m_name);
    database.setDatabaseName(path);
    if (database.open())
        return true;
    *fault = sqliteFault(database.lastError());
    return false;
}

void SqliteConnection::close()
{
    if (m_name.isEmpty())
        return;
    database().close();
    QSqlDatabase::removeDatabase(m_name);
    m_name.clear();
}

bool SqliteConnection::run(const QString& statement, QString* fault) const
{
    QSqlQuery query(database());
    if (query.exec(statement))
        return true;
    *fault = sqliteFault(query.lastError());
    return false;
}

qint64 SqliteConnection::number(const QString& statement) const
{
    QSqlQuery query(database());
    return query.exec(statement) && query.next() ? query.value(0).toLongLong() : -1;
}

QString sqliteFault(const QSqlError& error)
{
    const QString text = error.databaseText().trimmed();
    return text.isEmpty() ? error.driverText().trimmed() : text;
}

} // namespace kx
