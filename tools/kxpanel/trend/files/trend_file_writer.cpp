#include "kxpanel/trend/files/trend_file_writer.h"

#include "kxpanel/trend/model/trend_number.h"
#include "recording/recording_writer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace kxpanel
{

namespace
{

class TrendFileWriter
{
    Q_DECLARE_TR_FUNCTIONS(kxpanel::TrendFileWriter)
};

/// In a range, with the one that held at its beginning. Of old times, of which spans are left,
/// others before it may be known; they were not so any more.
QVector<TrendSample> samplesIn(const TrendStore& store, const TrendRange& range)
{
    QVector<TrendSample> samples;
    if (range.to <= range.from)
        return samples;
    for (const TrendSample& sample : store.samples(range.from, range.to)) {
        const bool endsAnother =
            !samples.isEmpty() && samples.last().time() < range.from && sample.time() <= range.from;
        if (endsAnother)
            samples.clear();
        if (sample.time() < range.to)
            samples << sample;
    }
    if (!samples.isEmpty())
        samples.first().setTime(std::max(samples.first().time(), range.from));
    return samples;
}

QVector<TrendRow> rowsOf(const QList<TrendChannel>& channels, const TrendRange& range, qint64 now)
{
    QVector<TrendRow> rows;
    for (int tag = 0; tag < channels.size(); ++tag) {
        const TrendChannel& channel = channels.at(tag);
        const qint64 end = std::min(range.to, channel.until(now) + 1);
        for (const TrendSample& sample : samplesIn(*channel.store, {range.from, end}))
            rows << TrendRow{sample, tag};
        rows << TrendRow{{std::max(end, range.from), gapValue(kx::GapReason::RecorderStopped)},
                         tag};
    }
    return rows;
}

QVector<TrendRow> inTime(QVector<TrendRow> rows)
{
    std::stable_sort(rows.begin(), rows.end(), [](const TrendRow& one, const TrendRow& other) {
        return one.sample.time() < other.sample.time();
    });
    return rows;
}

void record(const TrendRow& row, int places, kx::RecordingWriter* writer)
{
    kx::GapReason reason = kx::GapReason::NotYetRead;
    const TrendSample& sample = row.sample;
    if (!sample.isGap())
        writer->sample(sample.time(), row.tag, {fileText(sample, places), true});
    else if (gapReasonOf(sample.value, &reason))
        writer->gap(sample.time(), row.tag, reason);
    else
        writer->sample(sample.time(), row.tag, {QStringLiteral("nan"), false});
}

/// One of two of the same station and address, by which a recording tells them apart.
const TrendChannel* twinIn(const QList<TrendChannel>& channels)
{
    QSet<QPair<int, QString>> places;
    for (const TrendChannel& channel : channels) {
        const QPair<int, QString> place(channel.station, channel.address);
        if (places.contains(place))
            return &channel;
        places.insert(place);
    }
    return nullptr;
}

bool writeRows(const QString& path, const TrendExport& gathered, QString* error)
{
    const std::unique_ptr<kx::RecordingWriter> writer = kx::recordingWriterFor(path, false);
    if (!writer->open(path, gathered.tags, error))
        return false;
    for (const TrendRow& row : inTime(gathered.rows))
        record(row, gathered.places.at(row.tag), writer.get());
    const bool isWhole = writer->close();
    *error = writer->failure();
    return isWhole;
}

} // namespace

bool gatherTrend(const QString& path, const QList<TrendChannel>& channels, const TrendRange& range,
                 qint64 now, TrendExport* gathered, QString* error)
{
    QList<TrendChannel> shown;
    *gathered = TrendExport();
    gathered->path = path;
    for (const TrendChannel& channel : channels) {
        if (!channel.isShown)
            continue;
        shown << channel;
        gathered->tags << kx::RecordedTag{channel.tagName, channel.station, channel.address,
                                          channel.unit};
        gathered->places << channel.places;
        gathered->isThinned |= channel.store->begin() < channel.store->exactSince()
                               && range.from < channel.store->exactSince();
    }
    if (!kx::isRecordingName(path) || shown.isEmpty()) {
        *error = shown.isEmpty()
                     ? TrendFileWriter::tr("No value is shown that could be saved")
                     : TrendFileWriter::tr("%1: its name must end with .csv or .sqlite").arg(path);
        return false;
    }
    if (const TrendChannel* const twin = twinIn(shown)) {
        *error = TrendFileWriter::tr("%1 is shown twice; hide one of both").arg(twin->address);
        return false;
    }
    gathered->rows = rowsOf(shown, range, now);
    gathered->isRounded = std::any_of(gathered->rows.cbegin(), gathered->rows.cend(),
                                      [](const TrendRow& row) { return row.sample.isRounded(); });
    return true;
}

bool writeTrend(const TrendExport& gathered, QString* error)
{
    const QString& path = gathered.path;
    const QFileInfo target(path);
    const QTemporaryDir folder(target.absolutePath() + QLatin1String("/.kxpanel-XXXXXX"));
    const QString made = folder.filePath(target.fileName());
    if (!folder.isValid()) {
        *error = QStringLiteral("%1: %2").arg(path, folder.errorString());
        return false;
    }
    if (!writeRows(made, gathered, error)) {
        error->replace(made, path); // nobody knows the folder
        return false;
    }
    if (std::rename(QFile::encodeName(made).constData(), QFile::encodeName(path).constData()) == 0)
        return true;
    *error = TrendFileWriter::tr("%1: cannot be replaced").arg(path);
    return false;
}

} // namespace kxpanel
