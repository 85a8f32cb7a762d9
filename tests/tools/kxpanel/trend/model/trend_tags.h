#ifndef KX_TESTS_TOOLS_KXPANEL_TREND_MODEL_TREND_TAGS_H
#define KX_TESTS_TOOLS_KXPANEL_TREND_MODEL_TREND_TAGS_H

#include "kxpanel/machine/machine_events.h"
#include "kxpanel/tags/tag_list.h"
#include "panel/values/value_address.h"

namespace kxpanel
{

/// A tag as a person types it: tagOf("Pressure", "D100@1/s16*0.1,unit=bar").
inline kx::Tag tagOf(const char* name, const char* address)
{
    kx::Tag tag;
    QString fault;
    tag.name = QLatin1String(name);
    if (!kx::parseValueAddress(QLatin1String(address), &tag.range, &tag.format, &fault))
        qFatal("%s", qPrintable(fault));
    return tag;
}

/// A good read of one register.
inline Reading readingOf(int number, qint64 raw, qint64 readAt)
{
    Reading reading;
    reading.number = number;
    reading.state = kx::WatchState::Ok;
    reading.raw = {raw};
    reading.readAt = readAt;
    return reading;
}

inline Reading failureOf(int number, kx::WatchState state)
{
    Reading reading;
    reading.number = number;
    reading.state = state;
    return reading;
}

} // namespace kxpanel

#endif
