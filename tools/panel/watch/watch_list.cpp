#include "panel/watch/watch_list.h"

#include "registers/register_types.h"

#include <algorithm>
#include <utility>

namespace kx
{

bool hasFailed(const WatchEntry& entry)
{
    return entry.state == WatchState::NoAnswer || entry.state == WatchState::Refused;
}

AddressRange WatchEntry::range() const
{
    AddressRange range;
    range.type = type;
    range.address = address;
    range.values = width;
    range.station = station;
    range.width = width;
    return range;
}

const ValueFormat& WatchEntry::valueFormat() const
{
    static const ValueFormat plain;
    return format ? *format : plain;
}

QList<qint64> WatchEntry::raw() const
{
    return isKnown ? QList<qint64>{value} + others : QList<qint64>();
}

// No two pages of a panel have the same.
uint qHash(const WatchList::PageKey& key)
{
    const int mostPages = 256; // of a type
    const uint ofStation = static_cast<uint>(key.station) * REGISTER_TYPE_COUNT
                           + static_cast<uint>(registerTypeRow(key.type));
    return ofStation * mostPages + static_cast<uint>(key.number);
}

WatchList::PageKey WatchList::pageOf(const Place& place)
{
    return {place.station, place.type, place.address / Page::SIZE};
}

int WatchList::firstAt(const Place& place) const
{
    if (place.address < 0)
        return -1;
    const auto page = m_pages.constFind(pageOf(place));
    return page == m_pages.constEnd()
               ? -1
               : page->first[static_cast<size_t>(place.address % Page::SIZE)];
}

int WatchList::firstOfWidth(const Place& place, int width) const
{
    int index = firstAt(place);
    while (index >= 0 && m_entries.at(index).width != width)
        index = m_next[static_cast<size_t>(index)];
    return index;
}

void WatchList::keepValuesOf(const WatchList& earlier)
{
    for (WatchEntry& entry : m_entries) {
        const int index =
            earlier.firstOfWidth({entry.station, entry.type, entry.address}, entry.width);
        if (index < 0)
            continue;
        const WatchEntry& known = earlier.m_entries.at(index);
        setState(&entry, known.state);
        entry.isKnown = known.isKnown;
        entry.value = known.value;
        entry.others = known.others;
        entry.readAt = known.readAt;
        entry.reads = known.reads;
        entry.changedAt = known.changedAt;
    }
}

void WatchList::setState(WatchEntry* entry, WatchState state)
{
    m_answered += static_cast<int>(state == WatchState::Ok)
                  - static_cast<int>(entry->state == WatchState::Ok);
    entry->state = state;
}

QList<int> WatchList::onChange(int station, const QString& type, int address,
                               const ValueSource& valuesOf, qint64 now)
{
    QList<int> changed;
    const RegisterType* const registerType = findRegisterType(type);
    if (!registerType || address < 0)
        return changed;
    QList<int> indexes;
    for (int before = m_widest - 1; before >= 0; --before)
        addPlace(firstAt({station, registerType, address - before}), &indexes);
    std::sort(indexes.begin(), indexes.end());
    for (const int index : std::as_const(indexes)) {
        WatchEntry& entry = m_entries[index];
        if (address - entry.address < entry.width && takeValues(&entry, valuesOf(entry), now))
            changed << index;
    }
    return changed;
}

namespace
{

/// Of one bit of a word the others do not count.
bool isSame(const WatchEntry& entry, qint64 value, const QList<qint64>& others)
{
    const int bit = entry.valueFormat().bit;
    return bit < 0 ? entry.value == value && entry.others == others
                   : (entry.value >> bit & 1) == (value >> bit & 1);
}

} // namespace

/// Whether the value is new. The driver reports some bits although they have not changed.
bool WatchList::takeValues(WatchEntry* entry, const QList<qint64>& values, qint64 now)
{
    if (values.size() != entry->width)
        return false;
    const qint64 value = values.first();
    const QList<qint64> others = values.mid(1);
    const bool isNew = !entry->isKnown || !isSame(*entry, value, others);
    if (isNew && entry->isKnown)
        entry->changedAt = now;
    entry->isKnown = true;
    entry->value = value;
    entry->others = others;
    return isNew;
}

QList<int> WatchList::onRead(const VARIABLE& job, const ValueSource& valuesOf, qint64 now)
{
    QList<int> toTell;
    for (const int index : coveredBy(job)) {
        WatchEntry& entry = m_entries[index];
        const bool isBack = hasFailed(entry);
        setState(&entry, WatchState::Ok);
        entry.readAt = now;
        ++entry.reads;
        // Zero is what the driver's cache starts with: reading it is no change. Nor does the driver
        // report what another read has brought before, of a part of a value alone; and what it
        // reports comes later, when whoever is back was told already.
        const bool isToTake = !entry.isKnown || entry.width > 1 || isBack;
        if ((isToTake && takeValues(&entry, valuesOf(entry), now)) || isBack)
            toTell << index;
    }
    return toTell;
}

QList<int> WatchList::onFailure(const VARIABLE& job, bool refused)
{
    const WatchState state = refused ? WatchState::Refused : WatchState::NoAnswer;
    QList<int> changed;
    for (const int index : coveredBy(job)) {
        if (m_entries[index].state != state)
            changed << index;
        setState(&m_entries[index], state);
    }
    return changed;
}

QList<int> WatchList::onSilence(int station)
{
    QList<int> changed;
    for (int index = 0; index < static_cast<int>(m_entries.size()); ++index) {
        WatchEntry& entry = m_entries[index];
        if (entry.station != station || entry.state == WatchState::NoAnswer)
            continue;
        setState(&entry, WatchState::NoAnswer);
        changed << index;
    }
    return changed;
}

void WatchList::addPlace(int first, QList<int>* indexes) const
{
    for (int index = first; index >= 0; index = m_next[static_cast<size_t>(index)])
        *indexes << index;
}

QList<int> WatchList::coveredBy(const VARIABLE& job) const
{
    QList<int> indexes;
    const RegisterType* const type = findRegisterType(job.regType);
    if (!type)
        return indexes;
    // Whatever a job claims to read, its type has no more addresses than these.
    const int first = qMax(job.address, type->lowestAddress);
    const int end = static_cast<int>(
        qMin(qint64(job.address) + job.count / registersPerAddress(type), qint64(type->limit)));
    for (int address = first; address < end;) {
        const auto page = m_pages.constFind(pageOf({job.station, type, address}));
        const int pageEnd = qMin(end, address - address % Page::SIZE + Page::SIZE);
        if (page == m_pages.constEnd())
            address = pageEnd;
        for (; address < pageEnd; ++address)
            addPlace(page->first[static_cast<size_t>(address % Page::SIZE)], &indexes);
    }
    if (m_widest > 1) {
        const auto isCut = [this, end](int index) {
            const WatchEntry& entry = m_entries.at(index);
            return end - entry.address < entry.width;
        };
        indexes.erase(std::remove_if(indexes.begin(), indexes.end(), isCut), indexes.end());
    }
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

} // namespace kx
