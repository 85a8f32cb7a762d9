#include "kxpanel/trend/model/trend_channel.h"

#include "kxpanel/tags/tag_list.h"
#include "kxpanel/trend/model/trend_number.h"
#include "panel/values/value_address.h"
#include "registers/register_types.h"

#include <QtCore/QStringList>

namespace kxpanel
{

namespace
{

/// What tells one value from another: how it is shown does not.
QString meaningOf(const kx::Tag& tag)
{
    kx::AddressRange range = tag.range;
    kx::ValueFormat format = tag.format;
    range.station = -1;
    format.unit.clear();
    format.decimals = -1;
    format.lowest.reset();
    format.highest.reset();
    return kx::valueAddressText(range, format);
}

} // namespace

bool isDigital(const kx::AddressRange& range, const kx::ValueFormat& format)
{
    const bool isCoil = range.type != nullptr && range.type->registerClass == BIT_CLASS;
    return format.kind == kx::ValueKind::Bit || (format.kind == kx::ValueKind::Plain && isCoil);
}

void describe(const WatchedValue& value, TrendChannel* channel)
{
    const kx::Tag& tag = value.tag;
    channel->number = value.number;
    channel->name = TagList::shownName(value).simplified(); // one line, whatever was pasted
    channel->tagName = tag.name;
    channel->station = tag.range.station;
    channel->address = meaningOf(tag);
    channel->unit = tag.format.unit;
    channel->isDigital = isDigital(tag.range, tag.format);
    channel->places = placesOf(tag.format);
}

void assignAxes(QList<TrendChannel>* channels)
{
    QStringList units;
    for (TrendChannel& channel : *channels) {
        channel.axis = channel.wanted;
        if (channel.wanted != TrendAxis::Automatic)
            continue;
        if (channel.isDigital) {
            channel.axis = TrendAxis::Lane;
            continue;
        }
        if (!units.contains(channel.unit))
            units << channel.unit;
        const int unit = static_cast<int>(units.indexOf(channel.unit));
        channel.axis = unit == 0 ? TrendAxis::Left : unit == 1 ? TrendAxis::Right : TrendAxis::Lane;
    }
}

QStringList unitsOn(const QList<TrendChannel>& channels, TrendAxis axis)
{
    QStringList units;
    for (const TrendChannel& channel : channels) {
        if (channel.isShown && channel.axis == axis && !units.contains(channel.unit))
            units << channel.unit;
    }
    return units;
}

} // namespace kxpanel
