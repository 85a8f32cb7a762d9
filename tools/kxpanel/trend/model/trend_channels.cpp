#include "kxpanel/trend/model/trend_channels.h"

#include "kxpanel/trend/model/trend_colours.h"
#include "kxpanel/trend/model/trend_layout.h"
#include "kxpanel/trend/model/trend_reading.h"

#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

TrendChannels::TrendChannels(const TagList* tags, QObject* parent) : QObject(parent), m_tags(tags)
{
    connect(m_tags, &TagList::valuesChanged, this, &TrendChannels::followTags);
}

const TrendChannel* TrendChannels::find(int number) const
{
    const int index = indexOf(number);
    return index < 0 ? nullptr : &m_channels.at(index);
}

QString TrendChannels::add(const QList<int>& numbers)
{
    QString fault;
    int added = 0;
    for (const int number : numbers) {
        const WatchedValue* value = m_tags->find(number);
        if (value == nullptr || indexOf(number) >= 0)
            continue;
        if (value->tag.format.kind == kx::ValueKind::Ascii)
            fault = tr("%1 is text, which has no curve").arg(TagList::shownName(*value));
        else if (addOne(number))
            ++added;
        else
            fault = tr("A plot holds %n value(s) at most", nullptr, MOST);
    }
    if (added > 0)
        finishChange();
    return fault;
}

bool TrendChannels::addOne(int number)
{
    if (m_channels.size() >= MOST)
        return false;
    TrendChannel channel;
    channel.look = freeLook();
    channel.store = std::make_shared<TrendStore>();
    describe(*m_tags->find(number), &channel);
    const Reading& known = m_tags->reading(number);
    if (known.state == kx::WatchState::Ok && known.readAt > 0)
        takeReading(known, m_tags->find(number)->tag.format, known.readAt, &channel);
    m_indexes.insert(number, static_cast<int>(m_channels.size()));
    m_channels << channel;
    return true;
}

/// The first look that none has, else one that few have.
int TrendChannels::freeLook() const
{
    QVector<int> uses(TREND_LOOKS, 0);
    for (const TrendChannel& channel : m_channels)
        ++uses[channel.look % TREND_LOOKS];
    return static_cast<int>(std::min_element(uses.constBegin(), uses.constEnd())
                            - uses.constBegin());
}

void TrendChannels::remove(const QList<int>& numbers)
{
    const QSet<int> gone(numbers.begin(), numbers.end());
    const auto isGone = [&gone](const TrendChannel& channel) {
        return gone.contains(channel.number);
    };
    m_channels.erase(std::remove_if(m_channels.begin(), m_channels.end(), isGone),
                     m_channels.end());
    finishChange();
}

void TrendChannels::setShown(int number, bool isShown)
{
    const int index = indexOf(number);
    if (index < 0 || m_channels.at(index).isShown == isShown)
        return;
    m_channels[index].isShown = isShown;
    emit channelsChanged();
}

void TrendChannels::setAxis(const QList<int>& numbers, TrendAxis axis)
{
    for (const int number : numbers) {
        if (indexOf(number) >= 0)
            m_channels[indexOf(number)].wanted = axis;
    }
    finishChange();
}

void TrendChannels::setRecorded(const QList<TrendChannel>& recorded)
{
    const auto isEarlier = [](const TrendChannel& channel) { return channel.number < 0; };
    m_channels.erase(std::remove_if(m_channels.begin(), m_channels.end(), isEarlier),
                     m_channels.end());
    for (TrendChannel channel : recorded.mid(0, std::max(0, MOST - int(m_channels.size())))) {
        channel.look = freeLook();
        m_channels << channel;
    }
    finishChange();
}

bool TrendChannels::hasRecorded() const
{
    return std::any_of(m_channels.begin(), m_channels.end(),
                       [](const TrendChannel& channel) { return channel.number < 0; });
}

void TrendChannels::clearHistory()
{
    for (const TrendChannel& channel : m_channels)
        channel.store->clear();
    emit samplesAdded();
}

void TrendChannels::finishChange()
{
    m_indexes.clear();
    for (int index = 0; index < m_channels.size(); ++index)
        m_indexes.insert(m_channels.at(index).number, index);
    assignAxes(&m_channels);
    emit channelsChanged();
}

void TrendChannels::takeReadings(const QVector<Reading>& readings, qint64 now)
{
    bool isAnyTaken = false;
    for (const Reading& reading : readings) {
        const int index = indexOf(reading.number);
        const WatchedValue* value = index < 0 ? nullptr : m_tags->find(reading.number);
        if (value == nullptr)
            continue;
        takeReading(reading, value->tag.format, now, &m_channels[index]);
        isAnyTaken = true;
    }
    if (isAnyTaken)
        emit samplesAdded();
}

void TrendChannels::takeLine(const LineStatus& status, qint64 now)
{
    if (status.state == LineState::Open || m_channels.isEmpty())
        return;
    for (const TrendChannel& channel : m_channels) {
        if (channel.endsAt < 0 && !channel.store->isEmpty())
            channel.store->append(now, gapValue(kx::GapReason::LineLost));
    }
    emit samplesAdded();
}

/// A value that means something else now begins anew.
void TrendChannels::followTags()
{
    QList<TrendChannel> left;
    for (TrendChannel channel : m_channels) {
        if (channel.number > 0 && m_tags->find(channel.number) == nullptr)
            continue;
        if (channel.number > 0) {
            const TrendChannel before = channel;
            describe(*m_tags->find(channel.number), &channel);
            if (channel.address != before.address || channel.station != before.station)
                channel.store->clear();
        }
        left << channel;
    }
    m_channels = left;
    finishChange();
    takeWanted();
}

QJsonArray TrendChannels::layout() const
{
    QJsonArray layout;
    for (const TrendChannel& channel : m_channels) {
        if (channel.number > 0)
            layout << channelJson(channel);
    }
    for (const QJsonValue& wanted : m_wanted)
        layout << wanted;
    return layout;
}

void TrendChannels::setLayout(const QJsonArray& layout)
{
    QList<TrendChannel> recorded;
    for (const TrendChannel& channel : m_channels) {
        if (channel.number < 0)
            recorded << channel;
    }
    m_channels = recorded;
    m_wanted = layout;
    finishChange();
    takeWanted();
}

void TrendChannels::takeWanted()
{
    QJsonArray left;
    for (int index = 0; index < m_wanted.size(); ++index) {
        const QJsonValue wanted = m_wanted.at(index);
        const int number = numberMeantBy(wanted.toObject());
        if (number > 0 && addOne(number))
            takeChannelJson(wanted.toObject(), &m_channels.last());
        else
            left << wanted;
    }
    const bool isAnyTaken = left.size() < m_wanted.size();
    m_wanted = left;
    if (isAnyTaken)
        finishChange();
}

/// 0: none that it does not have yet.
int TrendChannels::numberMeantBy(const QJsonObject& json) const
{
    for (const WatchedValue& value : m_tags->values()) {
        TrendChannel channel;
        describe(value, &channel);
        if (isMeant(json, channel) && indexOf(value.number) < 0)
            return value.number;
    }
    return 0;
}

} // namespace kxpanel
