#include "panel/plan/whole_values.h"

#include "panel/plan/watched_ranges.h"
#include "registers/register_types.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace kx
{

namespace
{

int endOf(const AddressRange& range)
{
    return range.address + range.values;
}

/// Of values that begin together the longest comes first.
bool isWiderOrBefore(const AddressRange& one, const AddressRange& other)
{
    return std::make_tuple(one.station, registerTypeRow(one.type), one.address, -one.width)
           < std::make_tuple(other.station, registerTypeRow(other.type), other.address,
                             -other.width);
}

void appendValues(const AddressRange& range, std::vector<AddressRange>* values)
{
    for (int i = 0; i < range.values; i += range.width)
        values->push_back({range.type, range.address + i, range.width, range.station, range.width});
}

/// `value` does not begin before `last`.
bool liesIn(const AddressRange& value, const AddressRange& last)
{
    return value.station == last.station && value.type == last.type && endOf(value) <= endOf(last);
}

} // namespace

WholeValues::WholeValues(const QList<AddressRange>& ranges)
{
    QList<AddressRange> single; // addresses that are values by themselves
    std::vector<AddressRange> wide;
    for (const AddressRange& range : ranges) {
        if (range.width > 1)
            appendValues(range, &wide);
        else
            single << range;
    }
    std::vector<AddressRange> singles;
    const WatchedRanges watched(single);
    for (const AddressRange& run : watched.runs())
        appendValues(run, &singles);
    std::sort(wide.begin(), wide.end(), isWiderOrBefore);
    std::vector<AddressRange> all;
    std::merge(singles.begin(), singles.end(), wide.begin(), wide.end(), std::back_inserter(all),
               isWiderOrBefore);
    for (const AddressRange& value : all) {
        if (m_values.empty() || !liesIn(value, m_values.back()))
            m_values.push_back(value);
    }
}

std::vector<AddressRange> WholeValues::within(const AddressRange& covered) const
{
    AddressRange first = covered;
    first.width = covered.values; // a value that begins with it and is longer does not lie in it
    std::vector<AddressRange> found;
    auto value = std::lower_bound(m_values.begin(), m_values.end(), first, isWiderOrBefore);
    for (; value != m_values.end() && liesIn(*value, covered); ++value)
        found.push_back(*value);
    return found;
}

} // namespace kx
