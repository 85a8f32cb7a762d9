#include "kxpanel/trend/model/trend_channels.h"

#include "kxpanel/trend/model/trend_colours.h"
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

QString TrendChannels::add(const QList<int>& numbers, qint64 now)
{
    QString fault;
    const auto before = m_channels.size();
    for (const int number : numbers) {
        const WatchedValue* value = m_tags->find(number);
        if (value == nullptr || indexOf(number) >= 0)
            continue;
        if (value->tag.format.kind == kx::ValueKind::Ascii)
            fault = tr("%1 is text, which has no curve").arg(TagList::shownName(*value));
        else if (m_channels.size() < MOST)
            addOne(number, now);
        else
            fault = tr("A plot holds %n value(s) at most", nullptr, MOST);
    }
    if (m_channels.size() > before)
        finishChange();
    return fault;
}

/// One that there is room for.
void TrendChannels::addOne(int number, qint64 now)
{
    TrendChannel channel;
    channel.look = freeLook();
    describe(*m_tags->find(number), &channel);
    beginHistory(&channel);
    beginWithKnown(now, &channel);
    m_indexes.insert(number, static_cast<int>(m_channels.size()));
    m_channels << channel;
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
    QList<TrendChannel> left;
    for (const TrendChannel& channel : qAsConst(m_channels)) {
        if (!gone.contains(channel.number))
            left << channel;
        else if (channel.number > 0)
            m_shelf.put(channel, 0, TrendShelf::Return::WhenAsked);
    }
    m_channels = left;
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

int TrendChannels::setRecorded(const QList<TrendChannel>& recorded)
{
    const auto isEarlier = [](const TrendChannel& channel) { return channel.number < 0; };
    m_channels.erase(std::remove_if(m_channels.begin(), m_channels.end(), isEarlier),
                     m_channels.end());
    const QList<TrendChannel> taken =
        recorded.mid(0, std::max(0, MOST - static_cast<int>(m_channels.size())));
    for (TrendChannel channel : taken) {
        channel.look = freeLook();
        m_channels << channel;
    }
    finishChange();
    return static_cast<int>(taken.size());
}

void TrendChannels::shift(qint64 milliseconds)
{
    m_shelf.shift(milliseconds);
    for (TrendChannel& channel : m_channels) {
        if (channel.number < 0)
            continue;
        channel.store->shift(milliseconds);
        channel.readAt += channel.readAt > 0 ? milliseconds : 0;
    }
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

/// A value that means something else now begins anew, and goes on when it means the same again.
void TrendChannels::followTags()
{
    QList<TrendChannel> left;
    for (int index = 0; index < m_channels.size(); ++index) {
        const TrendChannel& channel = m_channels.at(index);
        const WatchedValue* const value = m_tags->find(channel.number);
        if (channel.number > 0 && value == nullptr)
            m_shelf.put(channel, index, TrendShelf::Return::WithItsNumber);
        else
            left << (value ? followed(channel, *value) : channel);
    }
    m_channels = left;
    takeReturning();
    finishChange();
    takeWanted();
}

TrendChannel TrendChannels::followed(const TrendChannel& before, const WatchedValue& value)
{
    TrendChannel channel = before;
    describe(value, &channel);
    if (channel.address == before.address && channel.station == before.station)
        return channel;
    m_shelf.put(before, 0, TrendShelf::Return::WhenAsked);
    beginHistory(&channel);
    beginWithKnown(NO_TIME, &channel);
    return channel;
}

void TrendChannels::takeReturning()
{
    for (const TrendShelf::Kept& kept : m_shelf.returning()) {
        const WatchedValue* const value = m_tags->find(kept.channel.number);
        TrendChannel channel = kept.channel;
        if (value == nullptr || m_channels.size() >= MOST)
            continue;
        describe(*value, &channel);
        if (channel.address != kept.channel.address || channel.station != kept.channel.station)
            continue;
        m_shelf.take(kept.channel);
        m_channels.insert(std::min(kept.place, static_cast<int>(m_channels.size())), channel);
    }
}

/// As the shelf has it, else empty.
void TrendChannels::beginHistory(TrendChannel* channel)
{
    const std::optional<TrendChannel> kept = m_shelf.take(*channel);
    channel->store = kept ? kept->store : std::make_shared<TrendStore>();
    channel->readAt = kept ? kept->readAt : 0;
}

void TrendChannels::beginWithKnown(qint64 now, TrendChannel* channel)
{
    const Reading& known = m_tags->reading(channel->number);
    const bool isGood = known.state == kx::WatchState::Ok && known.readAt > 0;
    if (!isGood && (known.state == kx::WatchState::NeverRead || now == NO_TIME))
        return;
    takeReading(known, m_tags->find(channel->number)->tag.format, isGood ? known.readAt : now,
                channel);
}

} // namespace kxpanel
