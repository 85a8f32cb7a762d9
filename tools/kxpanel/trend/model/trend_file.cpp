#include "kxpanel/trend/model/trend_file.h"

#include "kxpanel/trend/model/trend_channels.h"
#include "panel/values/value_address.h"
#include "recording/recording_writer.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace kxpanel
{

namespace
{

const int SLICE = 20;    // milliseconds
const int AT_ONCE = 256; // events between two looks at the clock

struct Row {
    TrendSample sample;
    int tag;
};

QVector<Row> rowsOf(const QList<TrendChannel>& channels, const TrendRange& range, qint64 now)
{
    QVector<Row> rows;
    for (int tag = 0; tag < channels.size(); ++tag) {
        const TrendChannel& channel = channels.at(tag);
        const qint64 end = std::min(range.to, channel.until(now) + 1);
        for (TrendSample sample : channel.store->samples(range.from, end)) {
            sample.time = std::max(sample.time, range.from);
            if (sample.time < end)
                rows << Row{sample, tag};
        }
        rows << Row{{std::max(end, range.from), gapValue(kx::GapReason::RecorderStopped)}, tag};
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row& one, const Row& other) {
        return one.sample.time < other.sample.time;
    });
    return rows;
}

void record(const Row& row, kx::RecordingWriter* writer)
{
    kx::GapReason reason = kx::GapReason::NotYetRead;
    const TrendSample& sample = row.sample;
    if (!sample.isGap())
        writer->sample(sample.time, row.tag,
                       {QString::number(sample.value, 'g', QLocale::FloatingPointShortest), true});
    else if (gapReasonOf(sample.value, &reason))
        writer->gap(sample.time, row.tag, reason);
    else
        writer->sample(sample.time, row.tag, {QStringLiteral("nan"), false});
}

bool writeRows(const QString& path, const QList<TrendChannel>& channels, const QVector<Row>& rows,
               QString* error)
{
    QList<kx::RecordedTag> tags;
    for (const TrendChannel& channel : channels)
        tags << kx::RecordedTag{channel.tagName, channel.station, channel.address, channel.unit};
    const std::unique_ptr<kx::RecordingWriter> writer = kx::recordingWriterFor(path, false);
    if (!writer->open(path, tags, error))
        return false;
    for (const Row& row : rows)
        record(row, writer.get());
    const bool isWhole = writer->close();
    *error = writer->failure();
    return isWhole;
}

} // namespace

bool writeTrend(const QString& path, const QList<TrendChannel>& channels, const TrendRange& range,
                qint64 now, bool* isThinned, QString* error)
{
    QList<TrendChannel> shown;
    *isThinned = false;
    for (const TrendChannel& channel : channels) {
        if (!channel.isShown)
            continue;
        shown << channel;
        *isThinned |= channel.store->begin() < channel.store->exactSince()
                      && range.from < channel.store->exactSince();
    }
    if (!kx::isRecordingName(path) || shown.isEmpty()) {
        *error = shown.isEmpty()
                     ? TrendFileReader::tr("No value is shown that could be saved")
                     : TrendFileReader::tr("%1: its name must end with .csv or .sqlite").arg(path);
        return false;
    }
    const QFileInfo target(path);
    const QTemporaryDir folder(target.absolutePath() + QLatin1String("/.kxpanel-XXXXXX"));
    const QString made = folder.filePath(target.fileName());
    if (!folder.isValid()) {
        *error = QStringLiteral("%1: %2").arg(path, folder.errorString());
        return false;
    }
    if (!writeRows(made, shown, rowsOf(shown, range, now), error))
        return false;
    if (std::rename(QFile::encodeName(made).constData(), QFile::encodeName(path).constData()) == 0)
        return true;
    *error = TrendFileReader::tr("%1: cannot be replaced").arg(path);
    return false;
}

TrendFileReader::TrendFileReader(QObject* parent) : QObject(parent)
{
    connect(&m_timer, &QTimer::timeout, this, &TrendFileReader::readSlice);
}

bool TrendFileReader::open(const QString& path, QString* error)
{
    std::unique_ptr<kx::RecordingReader> reader = kx::openRecording(path, error);
    if (!reader)
        return false;
    m_reader = std::move(reader);
    m_channels.clear();
    m_range = TrendRange();
    m_remark.clear();
    for (const kx::RecordedTag& tag : m_reader->tags().mid(0, TrendChannels::MOST)) {
        TrendChannel channel;
        kx::AddressRange range;
        kx::ValueFormat format;
        QString fault;
        channel.number = -1 - static_cast<int>(m_channels.size());
        channel.tagName = tag.name;
        channel.name = tag.name.isEmpty() ? tag.address : tag.name;
        channel.station = tag.station;
        channel.address = tag.address;
        channel.unit = tag.unit;
        channel.isDigital =
            kx::parseValueAddress(tag.address, &range, &format, &fault) && isDigital(range, format);
        channel.store = std::make_shared<TrendStore>();
        m_channels << channel;
    }
    m_timer.start(0);
    return true;
}

void TrendFileReader::readSlice()
{
    QElapsedTimer clock;
    clock.start();
    kx::RecordedEvent event;
    while (clock.elapsed() < SLICE) {
        for (int count = 0; count < AT_ONCE; ++count) {
            if (!m_reader->next(&event))
                return finish();
            take(event);
        }
    }
}

void TrendFileReader::take(const kx::RecordedEvent& event)
{
    if (m_range.to == 0)
        m_range.from = event.time;
    m_range.to = std::max(m_range.to, event.time + 1);
    if (event.tag >= m_channels.size())
        return;
    bool isNumber = event.value.isNumber;
    const double number = isNumber ? event.value.text.toDouble(&isNumber) : 0;
    const double value = event.isGap ? gapValue(event.reason) : isNumber ? number : notANumber();
    m_channels.at(event.tag).store->append(event.time, value);
}

void TrendFileReader::finish()
{
    m_timer.stop();
    for (TrendChannel& channel : m_channels)
        channel.endsAt = std::max<qint64>(0, m_range.to - 1);
    QStringList remarks = {m_reader->failure(), m_reader->remark()};
    if (m_reader->tags().size() > m_channels.size())
        remarks << tr("The first %1 of its %2 values are shown")
                       .arg(m_channels.size())
                       .arg(m_reader->tags().size());
    remarks.removeAll(QString());
    m_remark = remarks.join(QLatin1String("; "));
    m_reader.reset();
    emit finished();
}

} // namespace kxpanel
