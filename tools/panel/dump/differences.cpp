#include "panel/dump/differences.h"

#include "addresses/write_pieces.h"
#include "registers/register_types.h"

#include <algorithm>

namespace kx
{

namespace
{

bool goesBefore(const Assignment& one, const Assignment& other)
{
    const auto isCoils = [](const Assignment& assignment) {
        return assignment.range.type->registerClass == BIT_CLASS;
    };
    return std::make_pair(one.range.station, isCoils(one))
           < std::make_pair(other.range.station, isCoils(other));
}

} // namespace

QList<Difference> differencesOf(const QList<Assignment>& kept, const ControllerValues& read)
{
    QList<Difference> differences;
    for (const Assignment& run : kept) {
        AddressRange address = run.range;
        address.values = 1;
        for (const qint64 value : run.values) {
            const std::optional<qint64> other = read.at(address);
            if (other && *other != value)
                differences.append({address, value, *other});
            ++address.address;
        }
    }
    return differences;
}

QList<Assignment> joinedWrites(const QList<Difference>& differences, int maxWords)
{
    ControllerValues values;
    for (const Difference& difference : differences)
        values.take(difference.address, {difference.kept});
    QList<Assignment> runs = values.runs();
    std::stable_sort(runs.begin(), runs.end(), goesBefore);
    QList<Assignment> writes;
    for (const Assignment& run : runs)
        writes << writePieces(run, addressesPerWrite(run.range.type, maxWords));
    return writes;
}

} // namespace kx
