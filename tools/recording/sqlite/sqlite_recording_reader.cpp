#include "recording/sqlite/sqlite_recording_reader.h"

#include "system/translated_text.h"

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QVariant>

#include <climits>
#include <cmath>

namespace kx
{

namespace
{

const char* const NO_RECORDING =
    QT_TRANSLATE_NOOP("kx", "is no recording; kxhost record makes them");
const qint64 LAST_TIME = 253402300799999; // 9999-12-31T23:59:59.999Z
const int HIGHEST_STATION = 247;

/// Another program may keep anything in any column.
bool isOf(const QVariant& value, QMetaType::Type type)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return !value.isNull() && value.typeId() == type;
#else
    return !value.isNull() && value.userType() == type;
#endif
}

bool takeNumber(const QVariant& stored, qint64 lowest, qint64 highest, qint64* number)
{
    *number = stored.toLongLong();
    return isOf(stored, QMetaType::LongLong) && *number >= lowest && *number <= highest;
}

bool takeValue(const QVariant& stored, RecordedValue* value)
{
    if (isOf(stored, QMetaType::Double)) {
        const double number = stored.toDouble();
        *value = {QString::number(number, 'g', QLocale::FloatingPointShortest),
                  std::isfinite(number)};
        return true;
    }
    const bool isText = isOf(stored, QMetaType::QString);
    *value = {stored.toString(), !isText};
    return isText || isOf(stored, QMetaType::LongLong);
}

} // namespace

SqliteRecordingReader::~SqliteRecordingReader()
{
    m_samples.query = QSqlQuery();
    m_gaps.query = QSqlQuery();
}

bool SqliteRecordingReader::open(const QString& path, QString* error)
{
    m_path = path;
    QString fault;
    if (m_connection.open(path, &fault) && prepare(&fault) && isRecording(&fault)
        && readTags(&fault)
        && start(&m_samples, "samples",
                 "SELECT rowid, time, tag, value, rowid FROM samples ORDER BY rowid", &fault)
        && start(&m_gaps, "gaps", "SELECT id, since, tag, reason, behind FROM gaps ORDER BY id",
                 &fault))
        return true;
    *error = QStringLiteral("%1: %2").arg(path, fault);
    return false;
}

bool SqliteRecordingReader::prepare(QString* fault) const
{
    // A connection that could write nothing would leave the log's files behind.
    return m_connection.run(QStringLiteral("PRAGMA query_only = 1"), fault)
           && m_connection.run(QStringLiteral("PRAGMA trusted_schema = 0"), fault);
}

/// Tables, since a view may have rows without end.
bool SqliteRecordingReader::isRecording(QString* fault) const
{
    const QString count = QStringLiteral("SELECT count(*) FROM sqlite_master%1");
    if (!m_connection.run(count.arg(QString()), fault)) {
        *fault = Text::tr("cannot be read: %1").arg(*fault);
        return false;
    }
    if (isCutOff()) {
        *fault = Text::tr("cannot be read: its end is cut off");
        return false;
    }
    const QString tables =
        QStringLiteral(" WHERE type = 'table' AND name IN ('tags', 'samples', 'gaps')");
    if (m_connection.number(QStringLiteral("PRAGMA application_id")) == RECORDING_APPLICATION
        && m_connection.number(count.arg(tables)) == 3)
        return true;
    *fault = Text::tr(NO_RECORDING);
    return false;
}

/// Within its last page, of which SQLite takes the rest for zeros. With a log that has something
/// for it, it may be so.
bool SqliteRecordingReader::isCutOff() const
{
    const qint64 page = m_connection.number(QStringLiteral("PRAGMA page_size"));
    return QFileInfo(m_path + QLatin1String("-wal")).size() == 0 && page > 0
           && QFileInfo(m_path).size() % page != 0;
}

bool SqliteRecordingReader::readTags(QString* fault)
{
    QSqlQuery query(m_connection.database());
    query.exec(QStringLiteral("SELECT id, name, station, address, unit FROM tags ORDER BY id"));
    while (query.next()) {
        if (takeTag(query))
            continue;
        *fault = wrongRow("tags");
        return false;
    }
    return !hasFailed(query, fault);
}

bool SqliteRecordingReader::takeTag(const QSqlQuery& query)
{
    qint64 id = 0;
    qint64 station = 0;
    for (const int column : {1, 3, 4}) {
        if (!isOf(query.value(column), QMetaType::QString))
            return false;
    }
    const RecordedTag tag = {query.value(1).toString(), query.value(2).toInt(),
                             query.value(3).toString(), query.value(4).toString()};
    m_tags << tag;
    const bool isNumbered = takeNumber(query.value(0), 1, LLONG_MAX, &id);
    m_indexes.insert(id, static_cast<int>(m_tags.size()) - 1);
    return isNumbered && !tag.address.isEmpty()
           && takeNumber(query.value(2), 1, HIGHEST_STATION, &station);
}

bool SqliteRecordingReader::start(Rows* rows, const char* table, const char* statement,
                                  QString* fault)
{
    rows->table = table;
    rows->query = QSqlQuery(m_connection.database());
    rows->query.setForwardOnly(true);
    rows->query.exec(QLatin1String(statement));
    if (hasFailed(rows->query, fault))
        return false;
    advance(rows);
    return true;
}

/// One line of what a query says is wrong with the file.
bool SqliteRecordingReader::hasFailed(const QSqlQuery& query, QString* fault)
{
    if (!query.lastError().isValid())
        return false;
    *fault = Text::tr("cannot be read: %1").arg(sqliteFault(query.lastError()));
    return true;
}

QString SqliteRecordingReader::wrongRow(const char* table)
{
    return Text::tr("a row of %1 is wrong").arg(QLatin1String(table));
}

void SqliteRecordingReader::advance(Rows* rows)
{
    rows->hasEvent = false;
    if (!m_failure.isEmpty())
        return;
    QString fault;
    if (rows->query.next()) {
        rows->hasEvent = takeEvent(rows);
        if (!rows->hasEvent)
            fault = wrongRow(rows->table);
    } else {
        hasFailed(rows->query, &fault);
    }
    if (!fault.isEmpty())
        m_failure = QStringLiteral("%1: %2").arg(m_path, fault);
}

/// False also of a row that does not follow the one before: a damaged file may lead in a circle.
bool SqliteRecordingReader::takeEvent(Rows* rows) const
{
    const QSqlQuery& query = rows->query;
    RecordedEvent event;
    qint64 tag = 0;
    if (!takeNumber(query.value(0), rows->number + 1, LLONG_MAX, &rows->number)
        || !takeNumber(query.value(1), 0, LAST_TIME, &event.time)
        || !takeNumber(query.value(2), 1, LLONG_MAX, &tag)
        || !takeNumber(query.value(4), 0, LLONG_MAX, &rows->place))
        return false;
    event.tag = m_indexes.value(tag, -1);
    event.isGap = rows == &m_gaps;
    rows->event = event;
    const QVariant content = query.value(3);
    if (!event.isGap)
        return event.tag >= 0 && takeValue(content, &rows->event.value);
    return event.tag >= 0 && isOf(content, QMetaType::QString)
           && parseGapText(content.toString(), &rows->event.reason);
}

bool SqliteRecordingReader::next(RecordedEvent* event)
{
    if (!m_failure.isEmpty() || (!m_samples.hasEvent && !m_gaps.hasEvent))
        return false;
    // Times do not tell: several things may happen in a millisecond, and clocks are set back.
    const bool gapFirst = m_gaps.place < m_samples.place;
    Rows* const rows = !m_samples.hasEvent || (m_gaps.hasEvent && gapFirst) ? &m_gaps : &m_samples;
    *event = rows->event;
    advance(rows);
    return true;
}

} // namespace kx
