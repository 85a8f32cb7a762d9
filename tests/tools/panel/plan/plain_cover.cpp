#include "tools/panel/plan/plain_cover.h"

#include "registers/register_types.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <tuple>

namespace kx
{

namespace
{

using Place = std::pair<int, const RegisterType*>; // station and type

bool isOfCoils(const RegisterType* type)
{
    return type->registerClass == BIT_CLASS;
}

int units(const RegisterType* type, int addresses)
{
    return addresses * (type->registerClass == DOUBLE_WORD_CLASS ? 2 : 1);
}

double timeOfRequest(const RegisterType* type, int addresses, const LineTiming& line,
                     qint64 turnaround)
{
    const int values = units(type, addresses);
    const int bytes = 8 + 5 + (isOfCoils(type) ? (values + 7) / 8 : 2 * values);
    const double character = line.bitsPerCharacter() * 1e6 / line.baud;
    const double gap = line.baud > 19200 ? 1750 : 3.5 * character;
    return bytes * character + std::max(static_cast<double>(turnaround), gap) + gap;
}

bool isOneRequest(const RegisterType* type, int first, int last)
{
    const int values = units(type, last - first + 1);
    return values <= (isOfCoils(type) ? 2000 : 125)
           && modbusNumber(type, last) - modbusNumber(type, first) == units(type, last - first);
}

std::map<Place, std::set<int>> addressesOfRanges(const QList<AddressRange>& ranges)
{
    std::map<Place, std::set<int>> addresses;
    for (const AddressRange& range : ranges) {
        for (int i = 0; i < range.values; ++i)
            addresses[{range.station, range.type}].insert(range.address + i);
    }
    return addresses;
}

} // namespace

double timeOf(const QList<AddressRange>& pieces, const LineTiming& line, qint64 turnaround)
{
    double time = 0;
    for (const AddressRange& piece : pieces)
        time += timeOfRequest(piece.type, piece.values, line, turnaround);
    return time;
}

double leastTime(const QList<AddressRange>& ranges, const LineTiming& line, qint64 turnaround)
{
    double time = 0;
    for (const auto& [place, wanted] : addressesOfRanges(ranges)) {
        const std::vector<int> addresses(wanted.begin(), wanted.end());
        std::vector<double> least(addresses.size() + 1, std::numeric_limits<double>::max());
        least[0] = 0;
        for (size_t end = 1; end <= addresses.size(); ++end) {
            for (size_t first = end; first-- > 0;) {
                if (!isOneRequest(place.second, addresses[first], addresses[end - 1]))
                    break;
                const int length = addresses[end - 1] - addresses[first] + 1;
                least[end] =
                    std::min(least[end],
                             least[first] + timeOfRequest(place.second, length, line, turnaround));
            }
        }
        time += least.back();
    }
    return time;
}

QString faultOfCover(const QList<AddressRange>& ranges, const QList<AddressRange>& pieces)
{
    std::map<Place, std::set<int>> wanted = addressesOfRanges(ranges);
    for (const AddressRange& piece : pieces) {
        const int last = piece.address + piece.values - 1;
        std::set<int>& missing = wanted[{piece.station, piece.type}];
        if (!isOneRequest(piece.type, piece.address, last))
            return QStringLiteral("%1 is not one request")
                .arg(addressText(piece.type, piece.address));
        if (missing.erase(piece.address) == 0 || (piece.values > 1 && missing.erase(last) == 0))
            return QStringLiteral("%1 begins or ends where nothing is wanted")
                .arg(addressText(piece.type, piece.address));
        missing.erase(missing.lower_bound(piece.address), missing.upper_bound(last));
    }
    for (const auto& [place, missing] : wanted) {
        if (!missing.empty())
            return QStringLiteral("%1 is not read")
                .arg(addressText(place.second, *missing.begin()));
    }
    return QString();
}

} // namespace kx
