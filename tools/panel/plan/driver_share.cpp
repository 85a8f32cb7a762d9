#include "panel/plan/driver_share.h"

#include "panel/plan/ranges_beyond.h"
#include "panel/plan/whole_values.h"
#include "registers/register_types.h"

namespace kx
{

DriverShare driverShareOf(const QList<AddressRange>& ranges, int maxWords)
{
    DriverShare share;
    QList<AddressRange> tooLong;
    for (const AddressRange& range : ranges) {
        if (range.type->registerClass == BIT_CLASS)
            share.ofRules << range;
        else if (range.width > maxWords)
            tooLong << range;
        else
            share.ofDriver << range;
    }
    if (tooLong.isEmpty())
        return share;
    share.ofRules += tooLong;
    const WholeValues requests(tooLong);
    share.ofDriver = rangesBeyond(
        share.ofDriver, QList<AddressRange>(requests.all().begin(), requests.all().end()));
    return share;
}

} // namespace kx
