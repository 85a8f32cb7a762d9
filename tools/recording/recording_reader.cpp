#include "recording/recording_reader.h"

#include "recording/csv/csv_recording_reader.h"
#include "recording/sqlite/sqlite_recording_reader.h"

namespace kx
{

std::unique_ptr<RecordingReader> openRecording(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return nullptr;
    }
    const bool isDatabase = file.peek(16) == QByteArray("SQLite format 3", 16);
    file.close();
    std::unique_ptr<RecordingReader> reader;
    if (isDatabase)
        reader = std::make_unique<SqliteRecordingReader>();
    else
        reader = std::make_unique<CsvRecordingReader>();
    if (!reader->open(path, error))
        reader.reset();
    return reader;
}

} // namespace kx
