#include "panel/watch/watch_list.h"

#include <algorithm>

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
    range.station = station;
    return range;
}

WatchList::WatchList(const QList<Tag>& tags)
{
    for (const Tag& tag : tags) {
        for (int i = 0; i < tag.range.values; ++i) {
            WatchEntry entry;
            entry.station = tag.range.station;
            entry.type = tag.range.type;
            entry.address = tag.range.address + i;
            entry.name = tag.name;
            add(entry);
        }
    }
}

void WatchList::add(const WatchEntry& wanted)
{
    for (const int index : indexesOf(wanted.station, wanted.type, wanted.address, 1)) {
        QString& name = m_entries[index].name;
        if (name.isEmpty())
            name = wanted.name;
        if (wanted.name.isEmpty() || name == wanted.name)
            return;
    }
    m_places.insert(
        {Place(wanted.station, wanted.type, wanted.address), static_cast<int>(m_entries.size())});
    m_entries << wanted;
}

bool WatchList::allAnswered() const
{
    for (const WatchEntry& entry : m_entries) {
        if (entry.state != WatchState::Ok)
            return false;
    }
    return true;
}

QList<int> WatchList::takeChange(int station, const QString& type, int address,
                                 const ValueSource& valueOf, qint64 now)
{
    QList<int> changed;
    for (const int index : indexesOf(station, findRegisterType(type), address, 1)) {
        WatchEntry& entry = m_entries[index];
        const qint64 value = valueOf(entry);
        // The driver reports some bits although they have not changed.
        if (entry.isKnown && entry.value == value)
            continue;
        if (entry.isKnown)
            entry.changedAt = now;
        entry.isKnown = true;
        entry.value = value;
        changed << index;
    }
    return changed;
}

QList<int> WatchList::takeRead(const VARIABLE& job, const ValueSource& valueOf, qint64 now)
{
    QList<int> toTell;
    for (const int index : coveredBy(job)) {
        WatchEntry& entry = m_entries[index];
        const bool isBack = hasFailed(entry);
        entry.state = WatchState::Ok;
        entry.readAt = now;
        // Zero is what the driver's cache starts with: reading it is no change.
        const bool becomesKnown = !entry.isKnown;
        if (becomesKnown)
            entry.value = valueOf(entry);
        entry.isKnown = true;
        if (becomesKnown || isBack)
            toTell << index;
    }
    return toTell;
}

QList<int> WatchList::takeFailure(const VARIABLE& job, bool refused)
{
    const WatchState state = refused ? WatchState::Refused : WatchState::NoAnswer;
    QList<int> changed;
    for (const int index : coveredBy(job)) {
        if (m_entries[index].state != state)
            changed << index;
        m_entries[index].state = state;
    }
    return changed;
}

QList<int> WatchList::coveredBy(const VARIABLE& job) const
{
    const RegisterType* const type = findRegisterType(job.regType);
    return type ? indexesOf(job.station, type, job.address, job.count / registersPerAddress(type))
                : QList<int>();
}

QList<int> WatchList::indexesOf(int station, const RegisterType* type, int address,
                                int addresses) const
{
    QList<int> indexes;
    const Place end(station, type, address + addresses);
    for (auto place = m_places.lower_bound(Place(station, type, address));
         place != m_places.end() && place->first < end; ++place)
        indexes << place->second;
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

} // namespace kx
