#include "panel/jobs/wanted_values.h"

#include "panel/files/whole_range.h"
#include "panel/session/request_checks.h"
#include "registers/register_types.h"

namespace kx
{

WantedValues::WantedValues(const QList<Tag>& tags) : m_tags(tags)
{
    for (Tag& tag : m_tags)
        tag.range = wholeRange(tag);
    for (const AddressRange& range : existing()) {
        OfPlace& known = m_known[placeOf(range)];
        for (int i = 0; i < range.values; i += range.width)
            known[{range.address + i, range.width}];
    }
}

WantedValues::Place WantedValues::placeOf(const AddressRange& range)
{
    return {range.station, registerTypeRow(range.type)};
}

QList<AddressRange> WantedValues::existing() const
{
    QList<AddressRange> ranges;
    for (const Tag& tag : m_tags) {
        if (rangeRefusal(tag.range).isNone())
            ranges << tag.range;
    }
    return ranges;
}

template <class Use>
void WantedValues::eachIn(const AddressRange& range, Use use)
{
    OfPlace& known = m_known[placeOf(range)];
    const int end = range.address + range.values;
    for (auto value = known.lower_bound({range.address, 0});
         value != known.end() && value->first.first < end; ++value) {
        if (value->first.first + value->first.second <= end)
            use(value->first, &value->second);
    }
}

void WantedValues::take(const AddressRange& range, const QList<qint64>& values)
{
    eachIn(range, [&](const Value& value, Known* known) {
        *known = {values.mid(value.first - range.address, value.second), Failure()};
    });
}

void WantedValues::fail(const AddressRange& range, const Failure& failure)
{
    eachIn(range, [&](const Value&, Known* known) { *known = {{}, failure}; });
}

void WantedValues::failOnly(const AddressRange& value, const Failure& failure)
{
    m_known[placeOf(value)][{value.address, value.values}] = {{}, failure};
}

QList<AddressRange> WantedValues::unknownIn(const AddressRange& range)
{
    QList<AddressRange> unknown;
    eachIn(range, [&](const Value& value, Known* known) {
        if (known->isUnknown())
            unknown << AddressRange{range.type, value.first, value.second, range.station,
                                    value.second};
    });
    return unknown;
}

std::optional<ReadOutcome> WantedValues::takeFirst()
{
    if (m_tags.isEmpty())
        return std::nullopt;
    const AddressRange range = m_tags.first().range;
    ReadOutcome outcome = {m_tags.first(), rangeRefusal(range), {}};
    bool isComplete = true;
    for (int i = 0; outcome.failure.isNone() && i < range.values; i += range.width) {
        const Known& known = m_known[placeOf(range)][{range.address + i, range.width}];
        outcome.failure = known.failure;
        outcome.values << known.values;
        isComplete = isComplete && !known.isUnknown();
    }
    if (!isComplete && outcome.failure.isNone())
        return std::nullopt;
    if (!outcome.failure.isNone())
        outcome.values.clear();
    m_tags.removeFirst();
    return outcome;
}

QList<ReadOutcome> WantedValues::takeAll(const Failure& failure)
{
    QList<ReadOutcome> all;
    while (!m_tags.isEmpty()) {
        const std::optional<ReadOutcome> known = takeFirst();
        all << (known ? *known : ReadOutcome{m_tags.takeFirst(), failure, {}});
    }
    return all;
}

} // namespace kx
