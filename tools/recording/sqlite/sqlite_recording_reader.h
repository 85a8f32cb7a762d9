#ifndef KX_RECORDING_SQLITE_SQLITE_RECORDING_READER_H
#define KX_RECORDING_SQLITE_SQLITE_RECORDING_READER_H

#include "recording/recording_reader.h"
#include "recording/sqlite/sqlite_connection.h"

#include <QtCore/QHash>
#include <QtSql/QSqlQuery>

namespace kx
{

/// Of a database as SqliteRecordingWriter makes it. Needs a QCoreApplication.
class SqliteRecordingReader : public RecordingReader
{
public:
    ~SqliteRecordingReader() override;

    bool open(const QString& path, QString* error) override;
    bool next(RecordedEvent* event) override;

private:
    /// Rows of one table in the order in which they were recorded.
    struct Rows {
        QSqlQuery query;
        bool isGaps = false;
        bool hasEvent = false;
        RecordedEvent event; ///< the next one
        qint64 place = 0;    ///< rowid of a sample, or of the sample that a gap stands behind
    };

    bool readTags(QString* fault);
    bool start(Rows* rows, bool isGaps, const char* statement, QString* fault);
    void advance(Rows* rows);
    bool takeEvent(const QSqlQuery& query, bool isGap, RecordedEvent* event) const;

    QString m_path;
    SqliteConnection m_connection;
    QHash<qint64, int> m_indexes; ///< of tags by their id
    Rows m_samples;
    Rows m_gaps;
};

} // namespace kx

#endif
