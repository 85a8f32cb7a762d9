#include "panel/plan/watched_ranges.h"

#include "registers/register_types.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace kx
{

namespace
{

int endOfRange(const AddressRange& range)
{
    return range.address + range.values;
}

bool isWatchedBefore(const AddressRange& one, const AddressRange& other)
{
    return std::make_tuple(one.station, registerTypeRow(one.type), one.address)
           < std::make_tuple(other.station, registerTypeRow(other.type), other.address);
}

/// `next` does not begin before `run`.
bool continuesRange(const AddressRange& run, const AddressRange& next)
{
    return run.station == next.station && run.type == next.type && next.address <= endOfRange(run);
}

bool overlaps(const AddressRange& one, const AddressRange& other)
{
    return one.station == other.station && one.type == other.type && one.address < endOfRange(other)
           && other.address < endOfRange(one);
}

} // namespace

WatchedRanges::WatchedRanges(const QList<AddressRange>& ranges)
{
    std::vector<AddressRange> sorted(ranges.begin(), ranges.end());
    std::sort(sorted.begin(), sorted.end(), isWatchedBefore);
    for (const AddressRange& range : sorted) {
        if (m_runs.empty() || !continuesRange(m_runs.back(), range))
            m_runs.push_back({range.type, range.address, range.values, range.station});
        else
            m_runs.back().values =
                std::max(endOfRange(m_runs.back()), endOfRange(range)) - m_runs.back().address;
    }
}

std::vector<AddressRange> WatchedRanges::within(const AddressRange& covered) const
{
    std::vector<AddressRange> found;
    auto run = std::upper_bound(m_runs.begin(), m_runs.end(), covered, isWatchedBefore);
    if (run != m_runs.begin() && overlaps(*std::prev(run), covered))
        --run; // it begins before what is covered, or with it
    for (; run != m_runs.end() && overlaps(*run, covered); ++run) {
        const int first = std::max(run->address, covered.address);
        found.push_back({run->type, first, std::min(endOfRange(*run), endOfRange(covered)) - first,
                         run->station});
    }
    return found;
}

} // namespace kx
