#include "panel/jobs/wanted_values.h"

#include "panel/session/request_checks.h"
#include "registers/register_types.h"

namespace kx
{

WantedValues::WantedValues(const QList<Tag>& tags) : m_tags(tags) {}

std::map<int, WantedValues::Known>& WantedValues::at(const AddressRange& range)
{
    return m_known[{range.station, registerTypeRow(range.type)}];
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

void WantedValues::take(const AddressRange& range, const QList<qint64>& values)
{
    std::map<int, Known>& known = at(range);
    int address = range.address;
    for (const qint64 value : values)
        known[address++] = {value, Failure()};
}

void WantedValues::fail(const AddressRange& range, const Failure& failure)
{
    std::map<int, Known>& known = at(range);
    for (int i = 0; i < range.values; ++i)
        known[range.address + i] = {0, failure};
}

std::optional<ReadOutcome> WantedValues::takeFirst()
{
    if (m_tags.isEmpty())
        return std::nullopt;
    const AddressRange range = m_tags.first().range;
    ReadOutcome outcome = {m_tags.first(), rangeRefusal(range), {}};
    if (!outcome.failure.isNone()) {
        m_tags.removeFirst();
        return outcome;
    }
    const std::map<int, Known>& known = at(range);
    bool isComplete = true;
    for (int address = range.address; address < range.address + range.values; ++address) {
        const auto found = known.find(address);
        if (found != known.end() && !found->second.failure.isNone()) {
            m_tags.removeFirst();
            return ReadOutcome{outcome.tag, found->second.failure, {}};
        }
        isComplete = isComplete && found != known.end();
        if (isComplete)
            outcome.values << found->second.value;
    }
    if (!isComplete)
        return std::nullopt;
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
