#include "kxpanel/trend/model/trend_channel.h"

#include "panel/values/value_address.h"
#include "registers/register_types.h"

#include <QtCore/QStringList>

namespace kxpanel
{

bool isDigital(const kx::AddressRange& range, const kx::ValueFormat& format)
{
    const bool isCoil = range.type != nullptr && range.type->registerClass == BIT_CLASS;
    return format.kind == kx::ValueKind::Bit || (format.kind == kx::ValueKind::Plain && isCoil);
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
