#include "recording/csv/csv_recording_writer.h"

#include "panel/text/json_time.h"
#include "system/translated_text.h"

namespace kx
{

namespace
{

/// Rows that wait for flush() take no more memory than that.
const int MOST_WAITING = 1 << 20;   // bytes
const qint64 LONGEST_ROW = 1 << 24; // bytes

} // namespace

bool CsvRecordingWriter::open(const QString& path, const QList<RecordedTag>& tags, QString* error)
{
    m_tags = tags;
    m_cells = QVector<QByteArray>(static_cast<int>(tags.size()));
    m_isTaken = QVector<bool>(static_cast<int>(tags.size()), false);
    m_file.setFileName(path);
    QString fault;
    if (takeFile(&fault) && goOn(&fault))
        return true;
    m_file.close();
    *error = QStringLiteral("%1: %2").arg(path, fault);
    return false;
}

bool CsvRecordingWriter::takeFile(QString* fault)
{
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        *fault = fileFault();
        return false;
    }
    return lock(m_file, fault);
}

bool CsvRecordingWriter::goOn(QString* fault)
{
    const QByteArray header = csvHeader(m_tags);
    if (m_file.size() == 0) {
        m_rows = header;
        if (write(fault))
            return true;
        *fault = Text::tr("cannot be written: %1").arg(*fault);
        return false;
    }
    if (m_file.read(header.size()) != header) {
        *fault = Text::tr("holds something else than a recording of these tags; name another "
                          "file, or move this one away");
        return false;
    }
    QByteArray lastRow;
    if (readEnd(header.size(), &lastRow))
        return stopEarlierRun(lastRow, fault);
    *fault = fileFault();
    return false;
}

/// A machine that lost its power may leave a part of the last row, which is cut off.
bool CsvRecordingWriter::readEnd(qint64 headerSize, QByteArray* lastRow)
{
    const qint64 begin = qMax(headerSize, m_file.size() - LONGEST_ROW);
    if (!m_file.seek(begin))
        return false;
    QByteArray end = m_file.read(LONGEST_ROW);
    end.truncate(end.lastIndexOf('\n') + 1);
    m_size = begin + end.size();
    end.chop(1);
    *lastRow = end.mid(end.lastIndexOf('\n') + 1);
    return m_file.resize(m_size) && m_file.seek(m_size);
}

/// What ended the program that recorded before came after its last row.
bool CsvRecordingWriter::stopEarlierRun(const QByteArray& lastRow, QString* fault)
{
    QList<RecordedEvent> events;
    if (lastRow.isEmpty())
        return true;
    if (!parseCsvRow(lastRow, m_tags, &events, fault)) {
        *fault = Text::tr("its last row cannot be read: %1").arg(*fault);
        return false;
    }
    const bool wasStopped = !events.isEmpty() && events.last().isGap
                            && events.last().reason == GapReason::RecorderStopped;
    for (int tag = 0; tag < m_tags.size() && !wasStopped && !events.isEmpty(); ++tag)
        gap(events.last().time, tag, GapReason::RecorderStopped);
    return true;
}

void CsvRecordingWriter::sample(qint64 time, int tag, const RecordedValue& value)
{
    startRow(time, tag);
    m_cells[tag] = csvValue(value);
}

void CsvRecordingWriter::gap(qint64 time, int tag, GapReason reason)
{
    startRow(time, tag);
    m_cells[tag].clear();
    m_gaps[reason] << tag;
}

/// A tag has one record in a row: what comes of it in the same millisecond gets a row of its own.
void CsvRecordingWriter::startRow(qint64 time, int tag)
{
    if (m_hasRow && (m_time != time || m_isTaken.at(tag)))
        finishRow();
    m_hasRow = true;
    m_time = time;
    m_isTaken[tag] = true;
}

void CsvRecordingWriter::finishRow()
{
    if (!m_hasRow)
        return;
    m_rows += jsonTime(QDateTime::fromMSecsSinceEpoch(m_time, Qt::UTC)).toLatin1();
    for (QByteArray& cell : m_cells) {
        m_rows += ',' + cell;
        if (!m_keepsValues)
            cell.clear();
    }
    m_rows += ',' + csvGaps(m_gaps, m_tags) + '\n';
    m_gaps.clear();
    m_isTaken.fill(false);
    m_hasRow = false;
    if (m_rows.size() > MOST_WAITING)
        writeRows();
}

bool CsvRecordingWriter::flush()
{
    finishRow();
    return writeRows();
}

bool CsvRecordingWriter::close()
{
    const bool isWhole = flush();
    m_file.close();
    return isWhole;
}

bool CsvRecordingWriter::writeRows()
{
    QString fault;
    if (m_failure.isEmpty() && !write(&fault))
        m_failure = Text::tr("%1: cannot go on recording: %2").arg(m_file.fileName(), fault);
    return m_failure.isEmpty();
}

bool CsvRecordingWriter::write(QString* fault)
{
    // A disk that fills up takes a part first, and says why it takes no more when asked again.
    qint64 taken = 0;
    for (qint64 more = 1; more > 0 && taken < m_rows.size(); taken += qMax(more, qint64(0)))
        more = m_file.write(m_rows.constData() + taken, m_rows.size() - taken);
    const bool isWhole = taken == m_rows.size();
    if (!isWhole)
        *fault = m_file.errorString();
    m_size += m_rows.left(static_cast<int>(taken)).lastIndexOf('\n') + 1;
    if (!isWhole)
        m_file.resize(m_size);
    m_rows.clear();
    return isWhole;
}

QString CsvRecordingWriter::fileFault() const
{
    return Text::tr("cannot be written: %1").arg(m_file.errorString());
}

} // namespace kx
