#ifndef KX_RECORDING_SQLITE_SQLITE_RECORDING_WRITER_H
#define KX_RECORDING_SQLITE_SQLITE_RECORDING_WRITER_H

#include "recording/recording_writer.h"
#include "recording/sqlite/sqlite_connection.h"

#include <QtCore/QFile>
#include <QtCore/QVector>
#include <QtSql/QSqlQuery>

namespace kx
{

/// A SQLite database with a write-ahead log, which others may read meanwhile.
///
///     tags(id, name, station, address, unit)
///     samples(time, tag, value)             a number is stored as one, text as text
///     gaps(id, tag, since, until, reason, behind)   until: null as long as it lasts;
///                                           behind: the row of samples before it, 0: none
///     recording                             a view of all, with times as text
///
/// No index: it would cost more writing than the samples. Needs a QCoreApplication.
class SqliteRecordingWriter : public RecordingWriter
{
public:
    ~SqliteRecordingWriter() override;

    bool open(const QString& path, const QList<RecordedTag>& tags, QString* error) override;
    void sample(qint64 time, int tag, const RecordedValue& value) override;
    void gap(qint64 time, int tag, GapReason reason) override;
    bool flush() override;
    bool close() override;
    qint64 size() const override;

private:
    bool takeFile(QString* fault);
    bool prepareTags(QString* fault);
    bool takeTag(const RecordedTag& tag, QString* fault);
    bool prepareQueries(QString* fault);
    void stopEarlierRun();
    void endGap(qint64 time, int tag);
    bool begin();
    bool run(QSqlQuery* query);
    bool fail(const QString& fault);
    void closeDatabase();

    // Closed after the connection, since closing a file ends all locks of the program on it.
    QFile m_file;
    SqliteConnection m_connection;
    QString m_path;
    QList<RecordedTag> m_tags;
    QVector<qint64> m_ids;      ///< of the tags, in the file
    QVector<qint64> m_openGaps; ///< row of each tag's gap that lasts; 0: none
    QSqlQuery m_insertSample;
    QSqlQuery m_insertGap;
    QSqlQuery m_endGap;
    bool m_isInTransaction = false;
};

} // namespace kx

#endif
