#include "kxhost/watch_list.h"

namespace
{

bool isSame(const WatchEntry& entry, int station, const QString& type, int address)
{
    return entry.station == station && entry.address == address
           && type == QLatin1String(entry.type->name);
}

} // namespace

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
    for (WatchEntry& entry : m_entries) {
        if (!isSame(entry, wanted.station, QLatin1String(wanted.type->name), wanted.address))
            continue;
        if (entry.name.isEmpty())
            entry.name = wanted.name;
        return;
    }
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

int WatchList::takeChange(int station, const QString& type, int address, const ValueSource& valueOf,
                          qint64 now)
{
    for (int i = 0; i < m_entries.size(); ++i) {
        WatchEntry& entry = m_entries[i];
        if (!isSame(entry, station, type, address))
            continue;
        const qint64 value = valueOf(entry);
        // The driver reports some bits although they have not changed.
        if (entry.isKnown && entry.value == value)
            return -1;
        if (entry.isKnown)
            entry.changedAt = now;
        entry.isKnown = true;
        entry.value = value;
        return i;
    }
    return -1;
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
    QList<int> indexes;
    for (int i = 0; i < m_entries.size(); ++i) {
        const WatchEntry& entry = m_entries[i];
        const int end = job.address + job.count / registersPerAddress(entry.type);
        if (isSame(entry, job.station, job.regType, entry.address) && entry.address >= job.address
            && entry.address < end)
            indexes << i;
    }
    return indexes;
}
