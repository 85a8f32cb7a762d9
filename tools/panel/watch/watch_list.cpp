#include "panel/watch/watch_list.h"

#include <QtCore/QSet>

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

// No two addresses of a panel have the same.
uint qHash(const WatchList::Place& place)
{
    const int addressesOfAllTypes = 16384;
    const uint ofStation = static_cast<uint>(place.station) * REGISTER_TYPE_COUNT
                           + static_cast<uint>(registerTypeRow(place.type));
    return ofStation * addressesOfAllTypes + static_cast<uint>(place.address);
}

/// Which names a place has besides its first: most places have none.
class WatchList::MoreNames
{
public:
    /// False when it was there.
    bool insert(const Place& place, const QString& name)
    {
        QSet<QString>& names = m_names[place];
        if (names.contains(name))
            return false;
        names.insert(name);
        return true;
    }

private:
    QHash<Place, QSet<QString>> m_names;
};

WatchList::WatchList(const QList<Tag>& tags)
{
    int addresses = 0;
    for (const Tag& tag : tags)
        addresses += tag.range.values;
    m_entries.reserve(addresses);
    m_next.reserve(static_cast<size_t>(addresses));
    m_chains.reserve(addresses);
    MoreNames moreNames;
    for (const Tag& tag : tags) {
        m_longestName = qMax(m_longestName, static_cast<int>(tag.name.size()));
        for (int i = 0; i < tag.range.values; ++i) {
            WatchEntry entry;
            entry.station = tag.range.station;
            entry.type = tag.range.type;
            entry.address = tag.range.address + i;
            entry.name = tag.name;
            add(entry, &moreNames);
        }
    }
}

void WatchList::add(const WatchEntry& wanted, MoreNames* moreNames)
{
    const Place place = {wanted.station, wanted.type, wanted.address};
    const auto chain = m_chains.constFind(place);
    if (chain == m_chains.constEnd()) {
        append(wanted);
        return;
    }
    QString& firstName = m_entries[chain->first].name;
    if (firstName.isEmpty())
        firstName = wanted.name;
    else if (!wanted.name.isEmpty() && wanted.name != firstName
             && moreNames->insert(place, wanted.name))
        append(wanted);
}

void WatchList::append(const WatchEntry& entry)
{
    const int index = static_cast<int>(m_entries.size());
    m_entries << entry;
    m_next.push_back(-1);
    const Place place = {entry.station, entry.type, entry.address};
    const auto chain = m_chains.find(place);
    if (chain == m_chains.end()) {
        m_chains.insert(place, {index, index});
        return;
    }
    m_next[static_cast<size_t>(chain->last)] = index;
    chain->last = index;
}

void WatchList::keepValuesOf(const WatchList& earlier)
{
    for (WatchEntry& entry : m_entries) {
        const auto chain = earlier.m_chains.constFind({entry.station, entry.type, entry.address});
        if (chain == earlier.m_chains.constEnd())
            continue;
        const WatchEntry& known = earlier.m_entries.at(chain->first);
        setState(&entry, known.state);
        entry.isKnown = known.isKnown;
        entry.value = known.value;
        entry.readAt = known.readAt;
        entry.changedAt = known.changedAt;
    }
}

void WatchList::setState(WatchEntry* entry, WatchState state)
{
    m_answered += static_cast<int>(state == WatchState::Ok)
                  - static_cast<int>(entry->state == WatchState::Ok);
    entry->state = state;
}

QList<int> WatchList::takeChange(int station, const QString& type, int address,
                                 const ValueSource& valueOf, qint64 now)
{
    QList<int> changed;
    const RegisterType* const registerType = findRegisterType(type);
    if (!registerType)
        return changed;
    QList<int> indexes;
    addIndexesAt({station, registerType, address}, &indexes);
    for (const int index : indexes) {
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
        setState(&entry, WatchState::Ok);
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
        setState(&m_entries[index], state);
    }
    return changed;
}

void WatchList::addIndexesAt(const Place& place, QList<int>* indexes) const
{
    const auto chain = m_chains.constFind(place);
    for (int index = chain == m_chains.constEnd() ? -1 : chain->first; index >= 0;
         index = m_next[static_cast<size_t>(index)])
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
    const qint64 end =
        qMin(qint64(job.address) + job.count / registersPerAddress(type), qint64(type->limit));
    for (int address = first; address < end; ++address)
        addIndexesAt({job.station, type, address}, &indexes);
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

} // namespace kx
