#ifndef KX_KXPANEL_TREND_MODEL_TREND_READING_H
#define KX_KXPANEL_TREND_MODEL_TREND_READING_H

#include "kxpanel/machine/machine_events.h"
#include "kxpanel/trend/model/trend_channel.h"

namespace kxpanel
{

/// The number that a reading shows, notANumber(), or the gap for the reason why there is none.
TrendSample sampleOf(const Reading& reading, const kx::ValueFormat& format, qint64 time);

/// Takes a reading into a channel, unless it had that read already: a list that is edited makes
/// all come again.
/// @param now the time of a read that failed
void takeReading(const Reading& reading, const kx::ValueFormat& format, qint64 now,
                 TrendChannel* channel);

} // namespace kxpanel

#endif
