#include "kxpanel/trend/model/trend_reading.h"

#include "panel/values/value_codec.h"

namespace kxpanel
{

double numberOf(const Reading& reading, const kx::ValueFormat& format)
{
    double number = 0;
    switch (reading.state) {
    case kx::WatchState::NeverRead:
        return gapValue(kx::GapReason::NotYetRead);
    case kx::WatchState::NoAnswer:
        return gapValue(kx::GapReason::NoAnswer);
    case kx::WatchState::Refused:
        return gapValue(kx::GapReason::Refused);
    case kx::WatchState::Ok:
        break;
    }
    return kx::valueNumber(format, reading.raw, &number) ? number : notANumber();
}

void takeReading(const Reading& reading, const kx::ValueFormat& format, qint64 now,
                 TrendChannel* channel)
{
    const bool isRead = reading.state == kx::WatchState::Ok;
    if (isRead && reading.readAt == channel->readAt)
        return;
    if (isRead)
        channel->readAt = reading.readAt;
    channel->store->append(isRead ? reading.readAt : now, numberOf(reading, format));
}

} // namespace kxpanel
