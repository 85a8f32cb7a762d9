#ifndef KX_RECORDING_CSV_CSV_RECORDING_WRITER_H
#define KX_RECORDING_CSV_CSV_RECORDING_WRITER_H

#include "recording/csv/csv_recording_text.h"
#include "recording/recording_writer.h"

#include <QtCore/QFile>
#include <QtCore/QVector>

namespace kx
{

/// A table as csv_recording_text.h has it. Only whole rows get into the file; where it takes but
/// a part of one, that is cut off again.
class CsvRecordingWriter : public RecordingWriter
{
public:
    /// @param keepsValues as of recordingWriterFor()
    explicit CsvRecordingWriter(bool keepsValues) : m_keepsValues(keepsValues) {}

    /// Fails, too, when another program records into the file.
    bool open(const QString& path, const QList<RecordedTag>& tags, QString* error) override;
    void sample(qint64 time, int tag, const RecordedValue& value) override;
    void gap(qint64 time, int tag, GapReason reason) override;
    bool flush() override;
    bool close() override;
    qint64 size() const override { return m_size; }

private:
    bool takeFile(QString* fault);
    bool goOn(QString* fault);
    bool readEnd(qint64 headerSize, QByteArray* lastRow);
    bool stopEarlierRun(const QByteArray& lastRow, QString* fault);
    void startRow(qint64 time, int tag);
    void finishRow();
    bool writeRows();
    bool write(QString* fault);
    QString fileFault() const;

    bool m_keepsValues;
    QFile m_file;
    QList<RecordedTag> m_tags;
    qint64 m_size = 0; ///< bytes of whole rows in the file
    QByteArray m_rows; ///< not yet in the file
    bool m_hasRow = false;
    qint64 m_time = 0;           ///< of the row that is being made
    QVector<QByteArray> m_cells; ///< of that row
    GapsByReason m_gaps;         ///< that begin with it
    QVector<bool> m_isTaken;     ///< by tag: the row has a record of it
};

} // namespace kx

#endif
