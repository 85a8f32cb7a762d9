#ifndef KX_RECORDING_RECORDING_WRITER_H
#define KX_RECORDING_RECORDING_WRITER_H

#include "recording/recorded.h"

#include <memory>

class QFile;

namespace kx
{

/// One file of a recording. Records come in the order of their times; what was recorded is in
/// the file after flush(), and stays readable whatever ends the program then.
///
/// Used in one thread. After a failure nothing more is written, and the file holds what was
/// flushed before.
class RecordingWriter
{
public:
    virtual ~RecordingWriter() = default;

    /// Makes the file, or goes on with one that holds a recording of the same tags: where the
    /// program that made it was ended from outside, gaps begin with the last record.
    /// @return false and one line in `*error` that begins with the path
    virtual bool open(const QString& path, const QList<RecordedTag>& tags, QString* error) = 0;

    /// A value that was read; ends the tag's gap.
    virtual void sample(qint64 time, int tag, const RecordedValue& value) = 0;
    /// The tag has no value from now on; ends a gap for another reason.
    virtual void gap(qint64 time, int tag, GapReason reason) = 0;

    /// Hands what was recorded to the system. False on failure.
    virtual bool flush() = 0;
    /// Flushes and closes. False on failure.
    virtual bool close() = 0;

    /// Bytes of the file, of what was flushed.
    virtual qint64 size() const = 0;

    /// One line; empty when all went well.
    QString failure() const { return m_failure; }

protected:
    /// Keeps other recorders away from an open file until it is closed. False, and why in
    /// `*fault`, when one records into it.
    static bool lock(const QFile& file, QString* fault);

    QString m_failure;
};

/// Whether a file of that name can be recorded: *.csv, *.sqlite, *.sqlite3 or *.db.
bool isRecordingName(const QString& path);

/// The writer for a file of that name, which isRecordingName().
/// @param keepsValues whether a row of a CSV file holds the values that have not changed since
///        the row before, too; else those alone that were recorded for its time
std::unique_ptr<RecordingWriter> recordingWriterFor(const QString& path, bool keepsValues);

} // namespace kx

#endif
