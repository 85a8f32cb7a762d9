#include "panel/dump/controller_values.h"

#include "registers/register_types.h"

namespace kx
{

namespace
{

bool continues(const Assignment& run, const AddressRange& range)
{
    return run.range.station == range.station && run.range.type == range.type
           && run.range.address + run.range.values == range.address;
}

} // namespace

ControllerValues::Place ControllerValues::placeOf(const AddressRange& range, int index)
{
    return {range.station, registerTypeRow(range.type), range.address + index};
}

void ControllerValues::take(const AddressRange& range, const QList<qint64>& values)
{
    int index = 0;
    for (const qint64 value : values)
        m_values[placeOf(range, index++)] = value;
}

std::optional<qint64> ControllerValues::at(const AddressRange& address) const
{
    const auto found = m_values.find(placeOf(address));
    return found == m_values.end() ? std::nullopt : std::make_optional(found->second);
}

QList<Assignment> ControllerValues::runs() const
{
    QList<Assignment> runs;
    for (const auto& [place, value] : m_values) {
        const auto [station, row, number] = place;
        const RegisterType* const type =
            findRegisterType(QString::fromLatin1(REGISTER_TYPES[row].name));
        const AddressRange address = {type, number, 1, station};
        if (runs.isEmpty() || !continues(runs.last(), address))
            runs.append({address, {value}});
        else {
            ++runs.last().range.values;
            runs.last().values << value;
        }
    }
    return runs;
}

QList<AddressRange> rangesOf(const QList<Assignment>& assignments)
{
    QList<AddressRange> ranges;
    for (const Assignment& assignment : assignments)
        ranges << assignment.range;
    return ranges;
}

int valuesOf(const QList<Assignment>& runs)
{
    int count = 0;
    for (const Assignment& run : runs)
        count += run.range.values;
    return count;
}

QList<AddressRange> joinedRanges(const QList<AddressRange>& ranges)
{
    ControllerValues places;
    for (const AddressRange& range : ranges) {
        AddressRange address = range;
        for (address.values = 1; address.address < range.address + range.values; ++address.address)
            places.take(address, {0});
    }
    return rangesOf(places.runs());
}

} // namespace kx
