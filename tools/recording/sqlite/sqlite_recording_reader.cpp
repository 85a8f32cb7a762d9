#include "recording/sqlite/sqlite_recording_reader.h"

#include <QtCore/QLocale>
#include <QtCore/QVariant>

namespace kx
{

namespace
{

bool isText(const QVariant& value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return value.typeId() == QMetaType::QString;
#else
    return value.type() == QVariant::String;
#endif
}

bool isReal(const QVariant& value)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return value.typeId() == QMetaType::Double;
#else
    return value.type() == QVariant::Double;
#endif
}

RecordedValue valueOf(const QVariant& stored)
{
    if (isReal(stored))
        return {QString::number(stored.toDouble(), 'g', QLocale::FloatingPointShortest), true};
    return {stored.toString(), !isText(stored)};
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
    // A connection that could write nothing would leave the log's files behind.
    if (m_connection.open(path, &fault)
        && m_connection.run(QStringLiteral("PRAGMA query_only = 1"), &fault)) {
        if (!m_connection.run(QStringLiteral("SELECT count(*) FROM sqlite_master"), &fault))
            fault.prepend(QStringLiteral("cannot be read: "));
        else if (m_connection.number(QStringLiteral("PRAGMA application_id"))
                 != RECORDING_APPLICATION)
            fault = QStringLiteral("is no recording; kxhost record makes them");
        else if (readTags(&fault)
                 && start(&m_samples, false,
                          "SELECT time, tag, value, rowid FROM samples ORDER BY rowid", &fault)
                 && start(&m_gaps, true, "SELECT since, tag, reason, behind FROM gaps ORDER BY id",
                          &fault))
            return true;
    }
    *error = QStringLiteral("%1: %2").arg(path, fault);
    return false;
}

bool SqliteRecordingReader::readTags(QString* fault)
{
    QSqlQuery query(m_connection.database());
    if (!query.exec(QStringLiteral("SELECT id, name, station, address, unit FROM tags ORDER BY "
                                   "id"))) {
        *fault = sqliteFault(query.lastError());
        return false;
    }
    while (query.next()) {
        m_indexes.insert(query.value(0).toLongLong(), static_cast<int>(m_tags.size()));
        m_tags << RecordedTag{query.value(1).toString(), query.value(2).toInt(),
                              query.value(3).toString(), query.value(4).toString()};
    }
    return true;
}

bool SqliteRecordingReader::start(Rows* rows, bool isGaps, const char* statement, QString* fault)
{
    rows->isGaps = isGaps;
    rows->query = QSqlQuery(m_connection.database());
    rows->query.setForwardOnly(true);
    if (!rows->query.exec(QLatin1String(statement))) {
        *fault = sqliteFault(rows->query.lastError());
        return false;
    }
    advance(rows);
    return true;
}

void SqliteRecordingReader::advance(Rows* rows)
{
    rows->hasEvent = false;
    if (!m_failure.isEmpty())
        return;
    if (!rows->query.next()) {
        if (rows->query.lastError().isValid())
            m_failure = QStringLiteral("%1: %2").arg(m_path, sqliteFault(rows->query.lastError()));
        return;
    }
    rows->hasEvent = takeEvent(rows->query, rows->isGaps, &rows->event);
    rows->place = rows->query.value(3).toLongLong();
    if (!rows->hasEvent)
        m_failure = QStringLiteral("%1: a row of %2 is wrong")
                        .arg(m_path, QLatin1String(rows->isGaps ? "gaps" : "samples"));
}

bool SqliteRecordingReader::takeEvent(const QSqlQuery& query, bool isGap,
                                      RecordedEvent* event) const
{
    *event = RecordedEvent();
    event->isGap = isGap;
    event->time = query.value(0).toLongLong();
    event->tag = m_indexes.value(query.value(1).toLongLong(), -1);
    if (!isGap)
        event->value = valueOf(query.value(2));
    return event->tag >= 0 && (!isGap || parseGapText(query.value(2).toString(), &event->reason));
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
