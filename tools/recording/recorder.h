#ifndef KX_RECORDING_RECORDER_H
#define KX_RECORDING_RECORDER_H

#include "recording/recording_rules.h"
#include "recording/recording_writer.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace kx
{

struct RecorderSettings {
    QString path; ///< isRecordingName(); with a rotation each file has its time in its name
    RotationRule rotation;
    qint64 every = 0; ///< milliseconds from sample() to sample(); 0: each change is recorded
};

/// Records tags: decides what is written and when. It has no clock and no line; who does tells it
/// what was read and what time it is, in milliseconds since 1970-01-01 UTC.
///
///     open() --> a gap of all tags: not yet read --> values and gaps --> finish()
///
/// Used in one thread.
class Recorder
{
public:
    explicit Recorder(const RecorderSettings& settings) : m_settings(settings) {}

    /// Opens the first file. False, and one line in `*error` that begins with its path.
    bool open(const QList<RecordedTag>& tags, qint64 now, QString* error);

    /// The tag was read, changed or not.
    void onRead(qint64 now, int tag, const RecordedValue& value);
    /// The tag could not be read.
    void onGap(qint64 now, int tag, GapReason reason);
    /// With RecorderSettings::every: records each tag that was read since the sample before, and
    /// each gap that began. A tag that has neither a read nor a gap begins one, "not read"; so do
    /// all when the clock shows that more than two distances have passed.
    void sample(qint64 now);
    /// Between two samples, before the line or the recorder ends: a sample if any tag was read
    /// since the one before; else the gaps that began.
    void recordNews(qint64 now);
    /// Nobody has read since then, since the program was stopped or the machine suspended: gaps
    /// "not read" of all tags that have a value.
    void rest(qint64 since);
    /// To be called every 100 ms or so: hands to the system what has waited, goes on in the next
    /// file. True when there is another one.
    bool serve(qint64 now);
    /// Ends all tags with the gap "recorder stopped" and closes the file.
    void finish(qint64 now);

    /// The file that is being written, or was last.
    QString file() const { return m_file; }
    qint64 samples() const { return m_samples; }
    qint64 gaps() const { return m_gaps; }
    /// Why recording ended, one line; empty while all goes well.
    QString failure() const { return m_failure; }
    /// The tag has no value now.
    bool isInGap(int tag) const { return m_states.at(tag).isGap; }

private:
    struct State {
        bool isGap = true;
        bool isNew = false;            ///< read, or begun as a gap, since it was recorded
        bool hasRecordedValue = false; ///< what was recorded last is no gap
        GapReason reason = GapReason::NotYetRead;
        RecordedValue value;
    };

    bool openFile(qint64 now, QString* error);
    bool openNextFile(qint64 now);
    static void beginGap(State* state, GapReason reason);
    void beginGapsOfUnread();
    void recordNew(qint64 now);
    void recordMissed(qint64 now);
    void record(qint64 now, int tag);
    void recordAll(qint64 now);

    RecorderSettings m_settings;
    QList<RecordedTag> m_tags;
    QVector<State> m_states;
    std::unique_ptr<RecordingWriter> m_writer;
    FlushRule m_flush;
    qint64 m_begin = 0;      ///< of the file
    qint64 m_lastSample = 0; ///< 0: there was none
    QString m_file;
    qint64 m_samples = 0;
    qint64 m_gaps = 0;
    QString m_failure;
};

} // namespace kx

#endif
