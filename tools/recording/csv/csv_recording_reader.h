#ifndef KX_RECORDING_CSV_CSV_RECORDING_READER_H
#define KX_RECORDING_CSV_CSV_RECORDING_READER_H

#include "recording/recording_reader.h"

#include <QtCore/QFile>

namespace kx
{

/// Of a table as csv_recording_text.h has it.
class CsvRecordingReader : public RecordingReader
{
public:
    bool open(const QString& path, QString* error) override;
    bool next(RecordedEvent* event) override;

private:
    QByteArray readLine();
    bool readRow();

    QFile m_file;
    int m_line = 1;
    QList<RecordedEvent> m_events; ///< of the row that was read last
    int m_next = 0;                ///< of them
};

} // namespace kx

#endif
