#include "kxpanel/trend/model/trend_wanted.h"

#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/model/trend_layout.h"

namespace kxpanel
{

QList<TrendWanted::Found>
TrendWanted::take(const TagList& tags, const std::function<bool(int number)>& isTaken, int most)
{
    QList<Found> found;
    if (m_left.isEmpty())
        return found;
    QHash<QString, QList<int>> numbers;
    for (const WatchedValue& value : tags.values()) {
        if (isTaken(value.number))
            continue;
        TrendChannel channel;
        describe(value, &channel);
        numbers[channelKey(channelJson(channel))] << value.number;
    }
    QJsonArray left;
    for (const QJsonValue& wanted : qAsConst(m_left)) {
        const QJsonObject json = wanted.toObject();
        const auto meant = numbers.find(channelKey(json));
        if (meant == numbers.end() || meant->isEmpty() || found.size() >= most)
            left << wanted;
        else
            found << Found{meant->takeFirst(), json};
    }
    m_left = left;
    return found;
}

} // namespace kxpanel
