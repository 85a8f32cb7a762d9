#ifndef KX_RECORDING_RECORDING_READER_H
#define KX_RECORDING_RECORDING_READER_H

#include "recording/recorded.h"

#include <memory>

namespace kx
{

/// Reads a recording from its beginning to its end, also while it is being made. Used in one
/// thread.
class RecordingReader
{
public:
    virtual ~RecordingReader() = default;

    /// False, and one line in `*error` that begins with the path.
    virtual bool open(const QString& path, QString* error) = 0;
    /// The next event, in the order of recording; false at the end and on failure.
    virtual bool next(RecordedEvent* event) = 0;

    const QList<RecordedTag>& tags() const { return m_tags; }
    /// Why it ended before the end, one line; empty when all was read.
    QString failure() const { return m_failure; }
    /// What was left out at the end, one line: a row that was cut off by a power failure.
    QString remark() const { return m_remark; }

protected:
    QList<RecordedTag> m_tags;
    QString m_failure;
    QString m_remark;
};

/// Opens a recording of either kind, known by its content. Null, and one line in `*error`, when
/// it cannot be read or is none.
std::unique_ptr<RecordingReader> openRecording(const QString& path, QString* error);

} // namespace kx

#endif
