#include "panel/plan/plan_request.h"

#include "addresses/request_limits.h"
#include "registers/register_types.h"

#include <algorithm>

namespace kx
{

int PlannedRequest::lastAddress() const
{
    const int each = registersPerAddress(type);
    return address + (count + each - 1) / each - 1;
}

bool PlannedRequest::isTooLong() const
{
    return count
           > (type->registerClass == BIT_CLASS ? MOST_COILS_PER_READ : MOST_REGISTERS_PER_READ);
}

namespace
{

/// Whether the request's Modbus numbers run on where those of the type jump.
bool isMisread(const PlannedRequest& request, int unit)
{
    const int each = registersPerAddress(request.type);
    const int device = request.address + unit / each;
    return modbusNumber(request.type, device) + unit % each
           != modbusNumber(request.type, request.address) + unit;
}

AddressRange requestedRange(const PlannedRequest& request)
{
    return {request.type, request.firstAddress(),
            request.lastAddress() - request.firstAddress() + 1, request.station};
}

void markAsked(const PlannedRequest& request, const AddressRange& range, std::vector<bool>* asked)
{
    const int begin = (range.address - request.address) * registersPerAddress(request.type);
    const int end = begin + range.driverCount();
    for (int unit = std::max(begin, 0); unit < std::min(end, request.count); ++unit)
        (*asked)[static_cast<size_t>(unit)] = true;
}

QChar barCharacter(const std::vector<bool>& asked, size_t begin, size_t end)
{
    const auto first = asked.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto last = asked.begin() + static_cast<std::ptrdiff_t>(end);
    const auto marked = std::count(first, last, true);
    if (marked == 0)
        return QLatin1Char('.');
    return QLatin1Char(marked == last - first ? '#' : '+');
}

} // namespace

Coverage coverageOf(const PlannedRequest& request, const WatchedRanges& watched)
{
    Coverage coverage;
    coverage.asked.assign(static_cast<size_t>(std::max(request.count, 0)), false);
    for (const AddressRange& range : watched.within(requestedRange(request)))
        markAsked(request, range, &coverage.asked);
    for (int unit = 0; unit < request.count; ++unit) {
        if (!coverage.asked[static_cast<size_t>(unit)])
            ++coverage.bridgedCount;
        else if (isMisread(request, unit))
            ++coverage.misreadCount;
    }
    coverage.askedCount = std::max(request.count, 0) - coverage.bridgedCount;
    return coverage;
}

QString coverageBar(const std::vector<bool>& asked, int width)
{
    const size_t characters = std::min(asked.size(), static_cast<size_t>(width));
    QString bar;
    for (size_t i = 0; i < characters; ++i)
        bar +=
            barCharacter(asked, asked.size() * i / characters, asked.size() * (i + 1) / characters);
    return bar;
}

} // namespace kx
