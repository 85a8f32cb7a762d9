/// Recordings in a folder of their own, for tests.
#ifndef KX_TESTS_TOOLS_RECORDING_RECORDING_FOLDER_H
#define KX_TESTS_TOOLS_RECORDING_RECORDING_FOLDER_H

#include "recording/recording_reader.h"

#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace kx
{

/// 2023-11-14T22:13:20.000Z
const qint64 START = 1700000000000;

/// A named word in bar, and a bit.
inline QList<RecordedTag> pumpTags()
{
    return {{QStringLiteral("Pressure"), 1, QStringLiteral("D100"), QStringLiteral("bar")},
            {QString(), 2, QStringLiteral("Y10"), QString()}};
}

inline RecordedValue number(const char* text)
{
    return {QString::fromLatin1(text), true};
}

class RecordingFolder
{
public:
    QString path(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    static QByteArray contentOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }

    static void write(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
    }

private:
    QTemporaryDir m_folder;
};

/// Each event as "TIME TAG TEXT", with TIME in milliseconds since START; text that is no number
/// in apostrophes, gaps in brackets; then what was wrong, if anything was.
inline QStringList eventsOf(const QString& path)
{
    QStringList events;
    QString error;
    const std::unique_ptr<RecordingReader> reader = openRecording(path, &error);
    if (!reader)
        return {error};
    RecordedEvent event;
    while (reader->next(&event)) {
        const QString shape = event.isGap ? QStringLiteral("[%1]")
                                          : QLatin1String(event.value.isNumber ? "%1" : "'%1'");
        events << QStringLiteral("%1 %2 ").arg(event.time - START).arg(event.tag)
                      + shape.arg(event.isGap ? gapText(event.reason) : event.value.text);
    }
    for (const QString& text : {reader->failure(), reader->remark()}) {
        if (!text.isEmpty())
            events << text;
    }
    return events;
}

/// While one lives, no file of this process can grow beyond so many bytes, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before = {};
    void (*m_handler)(int);
};

} // namespace kx

#endif
