#include "kxpanel/trend/files/trend_file_reader.h"

#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_number.h"
#include "kxpanel/trend/model/trend_text.h"
#include "panel/values/value_address.h"

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <cmath>

namespace kxpanel
{

namespace
{

const int SLICE = 20;           // milliseconds
const int AT_ONCE = 256;        // events between two looks at the clock
const qint64 STEP_BACK = 60000; // milliseconds; of a clock set back by no more nothing is lost

/// For each of some channels, a power of two.
int samplesEach(int channels, int most)
{
    int samples = TrendStore::USUAL_SAMPLES;
    while (samples * 2 <= most / std::max(channels, 1))
        samples *= 2;
    return samples;
}

/// A database holds a long number as a text.
TrendSample sampleOf(const kx::RecordedEvent& event, int places)
{
    const QString& text = event.value.text;
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    const bool isNamed = !std::isfinite(number); // "nan", as it is saved, or "inf"
    if (!isNumber || isNamed || !(event.value.isNumber || isLong(number, places)))
        return {event.time, notANumber()};
    return isLong(number, places) ? longSample(event.time, number, text, places)
                                  : TrendSample(event.time, number);
}

} // namespace

TrendFileReader::TrendFileReader(QObject* parent, int mostSamples)
    : QObject(parent), m_mostSamples(mostSamples)
{
    connect(&m_timer, &QTimer::timeout, this, &TrendFileReader::readSlice);
}

bool TrendFileReader::open(const QString& path, QString* error)
{
    std::unique_ptr<kx::RecordingReader> reader = kx::openRecording(path, error);
    if (!reader)
        return false;
    close();
    m_reader = std::move(reader);
    const QList<kx::RecordedTag> tags = m_reader->tags().mid(0, TrendChannels::MOST);
    const int samples = samplesEach(static_cast<int>(tags.size()), m_mostSamples);
    for (const kx::RecordedTag& tag : tags) {
        TrendChannel channel;
        kx::AddressRange range;
        kx::ValueFormat format;
        QString fault;
        channel.number = -1 - static_cast<int>(m_channels.size());
        channel.tagName = tag.name;
        channel.name = tr("%1 (recorded)").arg(tag.name.isEmpty() ? tag.address : tag.name);
        channel.station = tag.station;
        channel.address = tag.address;
        channel.unit = tag.unit;
        if (kx::parseValueAddress(tag.address, &range, &format, &fault)) {
            channel.isDigital = isDigital(range, format);
            channel.places = placesOf(format);
        }
        channel.store = std::make_shared<TrendStore>(samples);
        m_channels << channel;
    }
    m_timer.start(0);
    return true;
}

void TrendFileReader::close()
{
    m_timer.stop();
    m_reader.reset();
    m_channels.clear();
    m_range = TrendRange();
    m_remark.clear();
    m_setBack = 0;
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
    const qint64 back = m_range.to - 1 - event.time;
    if (m_range.to == 0 || back > STEP_BACK)
        beginAt(event.time, back);
    m_range.to = std::max(m_range.to, event.time + 1);
    if (event.tag >= m_channels.size())
        return;
    const TrendChannel& channel = m_channels.at(event.tag);
    channel.store->append(event.isGap ? TrendSample(event.time, gapValue(event.reason))
                                      : sampleOf(event, channel.places));
}

/// One axis cannot show a time twice, so all begin anew.
/// @param back milliseconds by which the clock was set back
void TrendFileReader::beginAt(qint64 time, qint64 back)
{
    for (const TrendChannel& channel : qAsConst(m_channels))
        channel.store->clear();
    m_setBack = std::max(m_setBack, m_range.to == 0 ? 0 : back);
    m_range = {time, time};
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
    if (isThinned())
        remarks << tr("Of its old values only some are shown, the lowest and highest among them");
    if (m_setBack > 0)
        remarks << tr("Its clock was set back by %1; what was before is not shown")
                       .arg(spanText(m_setBack));
    if (m_range.to == 0)
        remarks << tr("It holds no values");
    remarks.removeAll(QString());
    m_remark = remarks.join(QLatin1String("; "));
    m_reader.reset();
    emit finished();
}

bool TrendFileReader::isThinned() const
{
    return std::any_of(m_channels.begin(), m_channels.end(), [](const TrendChannel& channel) {
        return channel.store->begin() < channel.store->exactSince();
    });
}

} // namespace kxpanel
