// What a project keeps of the channels.

#include "kxpanel/trend/model/trend_channels.h"
#include "kxpanel/trend/model/trend_layout.h"

#include <algorithm>

namespace kxpanel
{

QJsonArray TrendChannels::layout() const
{
    QJsonArray layout;
    for (const TrendChannel& channel : m_channels) {
        if (channel.number > 0)
            layout << channelJson(channel);
    }
    for (const QJsonValue& wanted : m_wanted.left())
        layout << wanted;
    return layout;
}

void TrendChannels::setLayout(const QJsonArray& layout)
{
    const auto isWatched = [](const TrendChannel& channel) { return channel.number > 0; };
    m_channels.erase(std::remove_if(m_channels.begin(), m_channels.end(), isWatched),
                     m_channels.end());
    m_shelf.clear();
    m_wanted.set(layout);
    finishChange();
    takeWanted();
}

void TrendChannels::takeWanted()
{
    const auto isTaken = [this](int number) { return indexOf(number) >= 0; };
    const QList<TrendWanted::Found> found =
        m_wanted.take(*m_tags, isTaken, MOST - static_cast<int>(m_channels.size()));
    for (const TrendWanted::Found& one : found) {
        addOne(one.number, NO_TIME);
        takeChannelJson(one.json, &m_channels.last());
    }
    if (!found.isEmpty())
        finishChange();
}

} // namespace kxpanel
