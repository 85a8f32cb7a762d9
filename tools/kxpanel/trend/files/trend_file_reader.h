#ifndef KX_KXPANEL_TREND_FILES_TREND_FILE_READER_H
#define KX_KXPANEL_TREND_FILES_TREND_FILE_READER_H

#include "kxpanel/trend/model/trend_channel.h"
#include "recording/recording_reader.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace kxpanel
{

/// Reads a recording into channels, in slices of some milliseconds, so that a window lives on.
///
///     open() --> finished(), once; never from within open()
class TrendFileReader : public QObject
{
    Q_OBJECT

public:
    /// Of all channels together: six days of a value that changes each second. With the spans above
    /// them they take up to 113 MB.
    static constexpr int MOST_SAMPLES = 1 << 19;

    /// @param mostSamples that are kept as they are; beyond, those of some are
    explicit TrendFileReader(QObject* parent = nullptr, int mostSamples = MOST_SAMPLES);

    /// Gives up a file that is being read. False, and one line in `*error`, when it is no
    /// recording.
    bool open(const QString& path, QString* error);
    /// Gives up a file that is being read, and forgets what was.
    void close();
    bool isReading() const { return m_timer.isActive(); }

    /// As many as a plot holds; their numbers fall from -1 on.
    const QList<TrendChannel>& channels() const { return m_channels; }
    TrendRange range() const { return m_range; }
    /// What is to be said of it: the rest of its values, that not all of their reads are kept, a
    /// row that was cut off, why it ended; one line, or nothing.
    QString remark() const { return m_remark; }

signals:
    void finished();

private:
    void readSlice();
    void take(const kx::RecordedEvent& event);
    void beginAt(qint64 time, qint64 back);
    bool isThinned() const;
    void finish();

    int m_mostSamples;
    std::unique_ptr<kx::RecordingReader> m_reader;
    QTimer m_timer;
    QList<TrendChannel> m_channels;
    TrendRange m_range;
    qint64 m_setBack = 0; ///< milliseconds
    QString m_remark;
};

} // namespace kxpanel

#endif
