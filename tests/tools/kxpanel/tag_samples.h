/// Tags of addresses as typed, for tests without a machine.
#ifndef KX_TESTS_TOOLS_KXPANEL_TAG_SAMPLES_H
#define KX_TESTS_TOOLS_KXPANEL_TAG_SAMPLES_H

#include "kxpanel/machine/machine_events.h"
#include "kxpanel/tags/tag_text.h"

namespace kxpanel
{

/// At station 1 where the address names none.
inline kx::Tag tagOf(const char* address, const char* name = "")
{
    kx::Tag tag;
    QString fault;
    if (!parseTypedTag(QString::fromLatin1(address), 1, &tag, &fault))
        qFatal("%s: %s", address, qPrintable(fault));
    tag.name = QString::fromLatin1(name);
    return tag;
}

/// Read a moment ago.
inline Reading readingOf(int number, const QList<qint64>& raw, qint64 readAt = 1000)
{
    Reading reading;
    reading.number = number;
    reading.state = kx::WatchState::Ok;
    reading.raw = raw;
    reading.readAt = readAt;
    return reading;
}

} // namespace kxpanel

#endif
