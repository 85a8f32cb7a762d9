#include "recording/recording_writer.h"

#include "recording/csv/csv_recording_writer.h"
#include "recording/sqlite/sqlite_recording_writer.h"
#include "system/translated_text.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

#include <sys/file.h>

namespace kx
{

namespace
{

QString suffixOf(const QString& path)
{
    return QFileInfo(path).suffix().toLower();
}

} // namespace

bool RecordingWriter::lock(const QFile& file, QString* fault)
{
    if (flock(file.handle(), LOCK_EX | LOCK_NB) == 0)
        return true;
    *fault = Text::tr("another program records into it");
    return false;
}

bool isRecordingName(const QString& path)
{
    static const QStringList suffixes = {QStringLiteral("csv"), QStringLiteral("sqlite"),
                                         QStringLiteral("sqlite3"), QStringLiteral("db")};
    return suffixes.contains(suffixOf(path)) && !QFileInfo(path).completeBaseName().isEmpty();
}

std::unique_ptr<RecordingWriter> recordingWriterFor(const QString& path, bool keepsValues)
{
    if (suffixOf(path) == QLatin1String("csv"))
        return std::make_unique<CsvRecordingWriter>(keepsValues);
    return std::make_unique<SqliteRecordingWriter>();
}

} // namespace kx
