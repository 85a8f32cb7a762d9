#include "recording/csv/csv_recording_reader.h"

#include "recording/csv/csv_recording_text.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

// 10,000 values with names and numbers of 40 characters, named as gaps besides, take 1 MiB.
const qint64 MOST_ROW = 16 * 1024 * 1024; // bytes, with its end
const qint64 AT_ONCE = 64 * 1024;         // bytes

} // namespace

bool CsvRecordingReader::open(const QString& path, QString* error)
{
    m_file.setFileName(path);
    QByteArray header;
    if (m_file.open(QIODevice::ReadOnly))
        header = readLine();
    if (m_file.error() != QFileDevice::NoError)
        *error = QStringLiteral("%1: %2").arg(path, m_file.errorString());
    else if (!header.endsWith('\n') || !parseCsvHeader(header.chopped(1), &m_tags))
        *error = QStringLiteral("%1: %2").arg(
            path, Text::tr("is no recording; kxhost record makes them"));
    else
        return true;
    return false;
}

bool CsvRecordingReader::next(RecordedEvent* event)
{
    while (m_next >= m_events.size()) {
        if (!readRow())
            return false;
    }
    *event = m_events.at(m_next);
    ++m_next;
    return true;
}

/// Of a row that is too long no more than shows that it is.
QByteArray CsvRecordingReader::readLine()
{
    QByteArray line;
    while (!line.endsWith('\n') && line.size() <= MOST_ROW) {
        const QByteArray part = m_file.readLine(AT_ONCE);
        if (part.isEmpty())
            break;
        line += part;
    }
    return line;
}

bool CsvRecordingReader::readRow()
{
    m_events.clear();
    m_next = 0;
    if (!m_failure.isEmpty() || m_file.atEnd())
        return false;
    const QByteArray line = readLine();
    ++m_line;
    const QString place = m_file.fileName() + QLatin1Char(':') + QString::number(m_line);
    if (line.size() > MOST_ROW) {
        m_failure = QStringLiteral("%1: %2").arg(
            place, Text::tr("the row is longer than %1 MiB").arg(MOST_ROW / 1024 / 1024));
        return false;
    }
    if (!line.endsWith('\n')) {
        m_remark = Text::tr("%1: the last row is cut off and left out").arg(place);
        return false;
    }
    QString fault;
    if (parseCsvRow(line.chopped(1), m_tags, &m_events, &fault))
        return true;
    m_events.clear();
    m_failure = QStringLiteral("%1: %2").arg(place, fault);
    return false;
}

} // namespace kx
