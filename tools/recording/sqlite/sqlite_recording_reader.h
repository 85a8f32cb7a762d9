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
        const char* table = nullptr;
        bool hasEvent = false;
        RecordedEvent event; ///< the next one
        qint64 number = 0;   ///< of the row, rising
        qint64 place = 0;    ///< rowid of a sample, or of the sample that a gap stands behind
    };

    bool prepare(QString* fault) const;
    bool isRecording(QString* fault) const;
    bool isCutOff() const;
    bool readTags(QString* fault);
    bool takeTag(const QSqlQuery& query);
    bool start(Rows* rows, const char* table, const char* statement, QString* fault);
    void advance(Rows* rows);
    bool takeEvent(Rows* rows) const;
    static bool hasFailed(const QSqlQuery& query, QString* fault);
    static QString wrongRow(const char* table);

    QString m_path;
    SqliteConnection m_connection;
    QHash<qint64, int> m_indexes; ///< of tags by their id
    Rows m_samples;
    Rows m_gaps;
};

} // namespace kx

#endif
