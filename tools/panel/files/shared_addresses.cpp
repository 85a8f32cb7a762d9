#include "panel/files/shared_addresses.h"

#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <algorithm>

namespace kx
{

namespace
{

std::tuple<int, const RegisterType*, int> placeOf(const Tag& tag, int value)
{
    return {tag.range.station, tag.range.type, tag.range.address + value * registersOf(tag.format)};
}

/// Of a bit the name tells which one it is.
QString textOf(ValueFormat format)
{
    format.unit.clear();
    return formatText(format);
}

} // namespace

SharedAddresses::SharedAddresses(const QList<Tag>& tags)
{
    const QString first = tags.isEmpty() ? QString() : textOf(tags.first().format);
    const bool isOneFormat = std::all_of(
        tags.begin(), tags.end(), [&first](const Tag& tag) { return textOf(tag.format) == first; });
    for (const Tag& tag : isOneFormat ? QList<Tag>() : tags) {
        const QString format = textOf(tag.format);
        for (int i = 0; i < valuesIn(tag.range, tag.format); ++i) {
            const auto placed = m_places.insert({placeOf(tag, i), Formats{format, false}});
            placed.first->second.differ =
                placed.first->second.differ || placed.first->second.first != format;
        }
    }
}

bool SharedAddresses::hold(const Tag& tag, int value) const
{
    const auto found = m_places.find(placeOf(tag, value));
    return found != m_places.end() && found->second.differ;
}

QString nameWithFormat(const AddressRange& range, ValueFormat format, int value)
{
    const QString name = valueName(range, format, value);
    const QString text = textOf(format);
    return text.isEmpty() ? name : name + QLatin1Char('/') + text;
}

} // namespace kx
