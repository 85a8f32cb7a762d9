#include "kxpanel/trend/model/trend_layout.h"

#include "kxpanel/trend/model/trend_colours.h"

namespace kxpanel
{

namespace
{

struct AxisKey {
    TrendAxis axis;
    const char* key;
};

const AxisKey KEYS[] = {
    {TrendAxis::Automatic, "automatic"},
    {TrendAxis::Left, "left"},
    {TrendAxis::Right, "right"},
    {TrendAxis::Lane, "lane"},
};

QString keyOf(TrendAxis axis)
{
    for (const AxisKey& row : KEYS) {
        if (row.axis == axis)
            return QString::fromLatin1(row.key);
    }
    return QString();
}

TrendAxis axisOf(const QString& key)
{
    for (const AxisKey& row : KEYS) {
        if (key == QLatin1String(row.key))
            return row.axis;
    }
    return TrendAxis::Automatic;
}

} // namespace

QJsonObject channelJson(const TrendChannel& channel)
{
    QJsonObject json = channel.layout;
    json[QLatin1String("name")] = channel.tagName;
    json[QLatin1String("station")] = channel.station;
    json[QLatin1String("address")] = channel.address;
    json[QLatin1String("axis")] = keyOf(channel.wanted);
    json[QLatin1String("look")] = channel.look;
    json[QLatin1String("shown")] = channel.isShown;
    return json;
}

QString channelKey(const QJsonObject& json)
{
    const QString parts[] = {json.value(QLatin1String("name")).toString(),
                             QString::number(json.value(QLatin1String("station")).toInt()),
                             json.value(QLatin1String("address")).toString()};
    return parts[0] + QChar(0) + parts[1] + QChar(0) + parts[2];
}

void takeChannelJson(const QJsonObject& json, TrendChannel* channel)
{
    channel->layout = json;
    const int look = json.value(QLatin1String("look")).toInt(-1);
    if (look >= 0 && look < TREND_LOOKS)
        channel->look = look;
    channel->wanted = axisOf(json.value(QLatin1String("axis")).toString());
    channel->isShown = json.value(QLatin1String("shown")).toBool(true);
}

} // namespace kxpanel
