#include "panel/watch/watch_list.h"

#include "registers/register_types.h"

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

/// The names of addresses besides their first: most have none.
class WatchList::MoreNames
{
public:
    struct Names {
        QSet<QString> names;
        int last = -1; ///< entry
    };
    /// By the first entry of the address.
    Names& of(int first) { return m_names[first]; }

private:
    QHash<int, Names> m_names;
};

WatchList::WatchList(const QList<Tag>& tags)
{
    int addresses = 0;
    for (const Tag& tag : tags)
        addresses += tag.range.values;
    m_entries.reserve(addresses);
    m_next.reserve(static_cast<size_t>(addresses));
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
    int& first = m_pages[pageOf(place)].first[static_cast<size_t>(place.address % Page::SIZE)];
    if (first < 0) {
        first = append(wanted);
        return;
    }
    QString& firstName = m_entries[first].name;
    if (firstName.isEmpty()) {
        firstName = wanted.name;
        return;
    }
    if (wanted.name.isEmpty() || wanted.name == firstName)
        return;
    MoreNames::Names& more = moreNames->of(first);
    if (more.names.contains(wanted.name))
        return;
    more.names.insert(wanted.name);
    const int index = append(wanted);
    m_next[static_cast<size_t>(more.last < 0 ? first : more.last)] = index;
    more.last = index;
}

int WatchList::append(const WatchEntry& entry)
{
    m_entries << entry;
    m_next.push_back(-1);
    return static_cast<int>(m_entries.size()) - 1;
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

void WatchList::keepValuesOf(const WatchList& earlier)
{
    for (WatchEntry& entry : m_entries) {
        const int index = earlier.firstAt({entry.station, entry.type, entry.address});
        if (index < 0)
            continue;
        const WatchEntry& known = earlier.m_entries.at(index);
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

QList<int> WatchList::onChange(int station, const QString& type, int address,
                               const ValueSource& valueOf, qint64 now)
{
    QList<int> changed;
    const RegisterType* const registerType = findRegisterType(type);
    if (!registerType)
        return changed;
    QList<int> indexes;
    addPlace(firstAt({station, registerType, address}), &indexes);
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

QList<int> WatchList::onRead(const VARIABLE& job, const ValueSource& valueOf, qint64 now)
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
    std::sort(indexes.begin(), indexes.end());
    return indexes;
}

} // namespace kx
