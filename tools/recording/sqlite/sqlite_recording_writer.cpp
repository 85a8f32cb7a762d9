#include "recording/sqlite/sqlite_recording_writer.h"

#include "recording/sqlite/sqlite_recording_tables.h"
#include "system/translated_text.h"

#include <QtCore/QStringList>
#include <QtCore/QVariant>

namespace kx
{

namespace
{

/// A number as one where SQLite holds it exactly; not-a-number would become null.
QVariant storedValue(const RecordedValue& value)
{
    if (!value.isNumber)
        return value.text;
    bool isInteger = false;
    const qint64 integer = value.text.toLongLong(&isInteger);
    if (isInteger)
        return integer;
    double number = 0;
    return value.isDouble(&number) ? QVariant(number) : QVariant(value.text);
}

} // namespace

SqliteRecordingWriter::~SqliteRecordingWriter()
{
    closeDatabase();
}

bool SqliteRecordingWriter::open(const QString& path, const QList<RecordedTag>& tags,
                                 QString* error)
{
    m_path = path;
    m_tags = tags;
    QString fault;
    if (takeFile(&fault) && m_connection.open(path, &fault) && prepareTables(m_connection, &fault)
        && prepareTags(&fault) && prepareQueries(&fault)) {
        stopEarlierRun();
        return true;
    }
    closeDatabase();
    *error = Text::tr("%1: cannot be recorded into: %2").arg(path, fault);
    return false;
}

/// SQLite lets several write, but each would take the other's gaps for its own.
bool SqliteRecordingWriter::takeFile(QString* fault)
{
    m_file.setFileName(m_path);
    // What cannot be opened SQLite refuses, and says why.
    return !m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) || lock(m_file, fault);
}

bool SqliteRecordingWriter::prepareTags(QString* fault)
{
    if (!m_connection.run(QStringLiteral("BEGIN"), fault))
        return false;
    for (const RecordedTag& tag : m_tags) {
        if (!takeTag(tag, fault))
            return false;
    }
    return m_connection.run(QStringLiteral("COMMIT"), fault);
}

bool SqliteRecordingWriter::takeTag(const RecordedTag& tag, QString* fault)
{
    const QString named = QStringLiteral("(name, station, address, unit)");
    for (const QString& statement :
         {QStringLiteral("INSERT OR IGNORE INTO tags%1 VALUES(?, ?, ?, ?)").arg(named),
          QStringLiteral("SELECT id, coalesce((SELECT max(id) FROM gaps WHERE tag = tags.id AND "
                         "until IS NULL), 0) FROM tags WHERE %1 = (?, ?, ?, ?)")
              .arg(named)}) {
        QSqlQuery query(m_connection.database());
        query.prepare(statement);
        // Null would be another thing than no name.
        for (const QVariant& value :
             {QVariant(tag.name.isNull() ? QLatin1String("") : tag.name), QVariant(tag.station),
              QVariant(tag.address), QVariant(tag.unit.isNull() ? QLatin1String("") : tag.unit)})
            query.addBindValue(value);
        if (!query.exec()) {
            *fault = sqliteFault(query.lastError());
            return false;
        }
        if (query.next()) {
            m_ids << query.value(0).toLongLong();
            m_openGaps << query.value(1).toLongLong();
        }
    }
    return true;
}

bool SqliteRecordingWriter::prepareQueries(QString* fault)
{
    const auto prepare = [this, fault](QSqlQuery* query, const char* statement) {
        *query = QSqlQuery(m_connection.database());
        if (query->prepare(QLatin1String(statement)))
            return true;
        *fault = sqliteFault(query->lastError());
        return false;
    };
    return prepare(&m_insertSample, "INSERT INTO samples VALUES(?, ?, ?)")
           && prepare(&m_insertGap,
                      "INSERT INTO gaps(tag, since, reason, behind) "
                      "VALUES(?, ?, ?, (SELECT coalesce(max(rowid), 0) FROM samples))")
           && prepare(&m_endGap, "UPDATE gaps SET until = ? WHERE id = ?");
}

/// What ended the program that recorded before came after its last record.
void SqliteRecordingWriter::stopEarlierRun()
{
    const qint64 last = m_connection.number(QStringLiteral(
        "SELECT max(time) FROM (SELECT time FROM samples WHERE rowid = (SELECT max(rowid) FROM "
        "samples) UNION ALL SELECT max(since) FROM gaps)"));
    for (int tag = 0; tag < m_tags.size() && last > 0; ++tag) {
        const qint64 stopped = m_connection.number(
            QStringLiteral("SELECT count(*) FROM gaps WHERE id = %1 AND reason = '%2'")
                .arg(m_openGaps.at(tag))
                .arg(gapText(GapReason::RecorderStopped)));
        if (stopped == 0)
            gap(last, tag, GapReason::RecorderStopped);
    }
}

void SqliteRecordingWriter::sample(qint64 time, int tag, const RecordedValue& value)
{
    if (!begin())
        return;
    endGap(time, tag);
    m_insertSample.bindValue(0, time);
    m_insertSample.bindValue(1, m_ids.at(tag));
    m_insertSample.bindValue(2, storedValue(value));
    run(&m_insertSample);
}

void SqliteRecordingWriter::gap(qint64 time, int tag, GapReason reason)
{
    if (!begin())
        return;
    endGap(time, tag);
    m_insertGap.bindValue(0, m_ids.at(tag));
    m_insertGap.bindValue(1, time);
    m_insertGap.bindValue(2, gapText(reason));
    if (run(&m_insertGap))
        m_openGaps[tag] = m_insertGap.lastInsertId().toLongLong();
}

void SqliteRecordingWriter::endGap(qint64 time, int tag)
{
    if (m_openGaps.at(tag) == 0)
        return;
    m_endGap.bindValue(0, time);
    m_endGap.bindValue(1, m_openGaps.at(tag));
    run(&m_endGap);
    m_openGaps[tag] = 0;
}

bool SqliteRecordingWriter::begin()
{
    if (!m_failure.isEmpty())
        return false;
    if (!m_isInTransaction && !m_connection.database().transaction())
        return fail(sqliteFault(m_connection.database().lastError()));
    m_isInTransaction = true;
    return true;
}

bool SqliteRecordingWriter::run(QSqlQuery* query)
{
    if (!m_failure.isEmpty())
        return false;
    return query->exec() || fail(sqliteFault(query->lastError()));
}

bool SqliteRecordingWriter::flush()
{
    if (!m_failure.isEmpty() || !m_isInTransaction)
        return m_failure.isEmpty();
    if (!m_connection.database().commit())
        return fail(sqliteFault(m_connection.database().lastError()));
    m_isInTransaction = false;
    return true;
}

bool SqliteRecordingWriter::fail(const QString& fault)
{
    m_failure = Text::tr("%1: cannot go on recording: %2").arg(m_path, fault);
    m_connection.database().rollback();
    m_isInTransaction = false;
    return false;
}

bool SqliteRecordingWriter::close()
{
    const bool isWhole = flush();
    closeDatabase();
    return isWhole;
}

void SqliteRecordingWriter::closeDatabase()
{
    for (QSqlQuery* const query : {&m_insertSample, &m_insertGap, &m_endGap})
        *query = QSqlQuery();
    m_connection.close();
    m_file.close();
}

/// With what the log will bring into the file, which it does not when it has a page twice.
qint64 SqliteRecordingWriter::size() const
{
    return m_connection.number(QStringLiteral("PRAGMA page_count"))
           * m_connection.number(QStringLiteral("PRAGMA page_size"));
}

} // namespace kx
