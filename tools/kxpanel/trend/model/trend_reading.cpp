#include "kxpanel/trend/model/trend_reading.h"

#include "kxpanel/trend/model/trend_number.h"
#include "panel/values/value_codec.h"

namespace kxpanel
{

namespace
{

/// With all digits, whatever of them is shown.
QString allDigits(kx::ValueFormat format, const QList<qint64>& raw)
{
    format.decimals = -1;
    return kx::valueText(format, raw);
}

} // namespace

TrendSample sampleOf(const Reading& reading, const kx::ValueFormat& format, qint64 time)
{
    double number = 0;
    switch (reading.state) {
    case kx::WatchState::NeverRead:
        return {time, gapValue(kx::GapReason::NotYetRead)};
    case kx::WatchState::NoAnswer:
        return {time, gapValue(kx::GapReason::NoAnswer)};
    case kx::WatchState::Refused:
        return {time, gapValue(kx::GapReason::Refused)};
    case kx::WatchState::Ok:
        break;
    }
    if (!kx::valueNumber(format, reading.raw, &number))
        return {time, notANumber()};
    const int places = placesOf(format);
    return isLong(number, places) ? longSample(time, number, allDigits(format, reading.raw), places)
                                  : TrendSample(time, number);
}

void takeReading(const Reading& reading, const kx::ValueFormat& format, qint64 now,
                 TrendChannel* channel)
{
    const bool isRead = reading.state == kx::WatchState::Ok;
    if (isRead && reading.readAt == channel->readAt)
        return;
    if (isRead)
        channel->readAt = reading.readAt;
    channel->store->append(sampleOf(reading, format, isRead ? reading.readAt : now));
}

} // namespace kxpanel
