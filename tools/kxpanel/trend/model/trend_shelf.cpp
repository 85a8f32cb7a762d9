#include "kxpanel/trend/model/trend_shelf.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

bool isSame(const TrendChannel& one, const TrendChannel& other)
{
    return one.number == other.number && one.station == other.station
           && one.address == other.address;
}

} // namespace

void TrendShelf::put(const TrendChannel& channel, int place, Return back)
{
    take(channel);
    if (!channel.store->isEmpty())
        channel.store->append(std::max(channel.store->end(), channel.readAt) + 1,
                              gapValue(kx::GapReason::NotRead));
    m_kept << Kept{channel, place, back};
    if (m_kept.size() > MOST)
        m_kept.removeFirst();
}

std::optional<TrendChannel> TrendShelf::take(const TrendChannel& wanted)
{
    for (int index = 0; index < m_kept.size(); ++index) {
        if (isSame(m_kept.at(index).channel, wanted))
            return m_kept.takeAt(index).channel;
    }
    return std::nullopt;
}

QList<TrendShelf::Kept> TrendShelf::returning() const
{
    QList<Kept> kept;
    for (const Kept& one : m_kept) {
        if (one.back == Return::WithItsNumber)
            kept << one;
    }
    std::sort(kept.begin(), kept.end(),
              [](const Kept& one, const Kept& other) { return one.place < other.place; });
    return kept;
}

void TrendShelf::shift(qint64 milliseconds)
{
    for (Kept& one : m_kept) {
        one.channel.store->shift(milliseconds);
        one.channel.readAt += one.channel.readAt > 0 ? milliseconds : 0;
    }
}

} // namespace kxpanel
