/// Watched entries for tests.
#ifndef KX_TESTS_TOOLS_PANEL_WATCH_WATCH_ENTRIES_H
#define KX_TESTS_TOOLS_PANEL_WATCH_WATCH_ENTRIES_H

#include "panel/values/value_address.h"
#include "panel/watch/watch_list.h"

namespace kx
{

/// A range from text such as "D100:4"; station 1 unless named.
inline AddressRange rangeOf(const char* address)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(QString::fromLatin1(address), &range, &error))
        qFatal("%s", qPrintable(error));
    if (range.station < 0)
        range.station = 1;
    return range;
}

/// A tag of such a range; typed unless named.
inline Tag tagOf(const char* address, const char* name = "")
{
    Tag tag;
    tag.name = QString::fromLatin1(name);
    tag.range = rangeOf(address);
    return tag;
}

/// An entry of "D100/float", in its format, that was read at 1000 ms.
/// @param raw one per address
inline WatchEntry entryOf(const char* address, const QList<qint64>& raw)
{
    AddressRange range;
    ValueFormat format;
    QString fault;
    if (!parseValueAddress(QString::fromLatin1(address), &range, &format, &fault))
        qFatal("%s", qPrintable(fault));
    WatchEntry entry;
    entry.station = 1;
    entry.type = range.type;
    entry.address = range.address;
    entry.width = static_cast<int>(raw.size());
    entry.format = std::make_shared<const ValueFormat>(format);
    entry.state = WatchState::Ok;
    entry.isKnown = true;
    entry.value = raw.first();
    entry.others = raw.mid(1);
    entry.readAt = 1000;
    return entry;
}

/// An entry that was read at 1000 ms.
inline WatchEntry entryOf(const char* address, qint64 value)
{
    const AddressRange range = rangeOf(address);
    WatchEntry entry;
    entry.station = range.station;
    entry.type = range.type;
    entry.address = range.address;
    entry.state = WatchState::Ok;
    entry.isKnown = true;
    entry.value = value;
    entry.readAt = 1000;
    return entry;
}

} // namespace kx

#endif
