#include "panel/plan/ranges_beyond.h"

#include "panel/plan/watched_ranges.h"
#include "panel/plan/whole_values.h"
#include "registers/register_types.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kx
{

namespace
{

/// Of several registers; all others.
struct ByWidth {
    QList<AddressRange> wide;
    QList<AddressRange> single;
};

ByWidth byWidth(const QList<AddressRange>& ranges)
{
    ByWidth sorted;
    for (const AddressRange& range : ranges)
        (range.width > 1 ? sorted.wide : sorted.single) << range;
    return sorted;
}

/// Requests, to be asked which values they read as a whole.
class Requests
{
public:
    explicit Requests(const QList<AddressRange>& requests)
    {
        for (const AddressRange& request : requests) {
            int& end = m_ends[placeOf(request)][request.address];
            end = std::max(end, request.address + request.values);
        }
        for (auto& place : m_ends) {
            int furthest = 0;
            for (auto& request : place.second)
                furthest = request.second = std::max(furthest, request.second);
        }
    }

    bool readWhole(const AddressRange& value) const
    {
        const auto ofPlace = m_ends.find(placeOf(value));
        if (ofPlace == m_ends.end())
            return false;
        const auto after = ofPlace->second.upper_bound(value.address);
        return after != ofPlace->second.begin()
               && std::prev(after)->second >= value.address + value.values;
    }

private:
    static std::pair<int, int> placeOf(const AddressRange& range)
    {
        return {range.station, registerTypeRow(range.type)};
    }

    /// By station and row of the type: how far any request reaches that begins at the address
    /// or before it.
    std::map<std::pair<int, int>, std::map<int, int>> m_ends;
};

QList<AddressRange> valuesBeyond(const QList<AddressRange>& ranges,
                                 const QList<AddressRange>& others)
{
    const Requests requests(others);
    QList<AddressRange> beyond;
    const WholeValues values(ranges);
    for (const AddressRange& value : values.all()) {
        if (!requests.readWhole(value))
            beyond << value;
    }
    return beyond;
}

} // namespace

QList<AddressRange> rangesBeyond(const QList<AddressRange>& ranges,
                                 const QList<AddressRange>& others)
{
    QList<AddressRange> beyond;
    const WatchedRanges covered(others);
    const ByWidth sorted = byWidth(ranges);
    const WatchedRanges wanted(sorted.single);
    for (const AddressRange& run : wanted.runs()) {
        int first = run.address;
        const auto add = [&](int end) {
            if (end > first)
                beyond << AddressRange{run.type, first, end - first, run.station};
        };
        for (const AddressRange& part : covered.within(run)) {
            add(part.address);
            first = part.address + part.values;
        }
        add(run.address + run.values);
    }
    return beyond + valuesBeyond(sorted.wide, others);
}

} // namespace kx
