#include "panel/watch/watch_list.h"

#include "panel/values/format_text.h"
#include "panel/values/value_address.h"
#include "registers/register_types.h"

#include <QtCore/QPair>
#include <QtCore/QSet>

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

/// What an address has besides its first entry: most have nothing.
class WatchList::MoreEntries
{
public:
    struct Entries {
        QHash<QString, int> firsts;          ///< the first one understood in another way, by that
        QSet<QPair<QString, QString>> names; ///< besides those of the firsts: by that, too
        int last = -1;                       ///< entry
    };
    /// By the first entry of the address.
    Entries& of(int first) { return m_entries[first]; }

private:
    QHash<int, Entries> m_entries;
};

/// How the value is understood: what else differs is another value.
QString WatchList::meaningOf(const WatchEntry& entry)
{
    if (!entry.format)
        return QString();
    const QString bit = entry.format->bit < 0 ? QString() : QString::number(entry.format->bit);
    return bit + QLatin1Char('/') + formatText(*entry.format);
}

/// Null when the tag's values are as their registers have them.
std::shared_ptr<const ValueFormat> WatchList::formatOf(const Tag& tag)
{
    const bool isPlain = formatText(tag.format).isEmpty() && tag.format.bit < 0;
    return isPlain ? nullptr : std::make_shared<const ValueFormat>(tag.format);
}

WatchList::WatchList(const QList<Tag>& tags)
{
    int values = 0;
    for (const Tag& tag : tags)
        values += valuesIn(tag.range, tag.format);
    m_entries.reserve(values);
    m_next.reserve(static_cast<size_t>(values));
    MoreEntries moreEntries;
    for (const Tag& tag : tags) {
        m_longestName = qMax(m_longestName, static_cast<int>(tag.name.size()));
        const int width = registersOf(tag.format);
        m_widest = qMax(m_widest, width);
        const std::shared_ptr<const ValueFormat> format = formatOf(tag);
        for (int i = 0; i < tag.range.values; i += width) {
            WatchEntry entry;
            entry.station = tag.range.station;
            entry.type = tag.range.type;
            entry.address = tag.range.address + i;
            entry.width = width;
            entry.format = format;
            entry.name = tag.name;
            add(entry, &moreEntries);
        }
    }
}

void WatchList::add(const WatchEntry& wanted, MoreEntries* moreEntries)
{
    const Place place = {wanted.station, wanted.type, wanted.address};
    int& first = m_pages[pageOf(place)].first[static_cast<size_t>(place.address % Page::SIZE)];
    if (first < 0) {
        first = append(wanted);
        return;
    }
    const QString meaning = meaningOf(wanted);
    const bool isLikeFirst = meaning == meaningOf(m_entries.at(first));
    MoreEntries::Entries& more = moreEntries->of(first);
    const int same = isLikeFirst ? first : more.firsts.value(meaning, -1);
    if (same >= 0) {
        QString& name = m_entries[same].name;
        if (name.isEmpty()) {
            name = wanted.name;
            return;
        }
        if (wanted.name.isEmpty() || wanted.name == name
            || more.names.contains({meaning, wanted.name}))
            return;
        more.names.insert({meaning, wanted.name});
    }
    const int index = append(wanted);
    if (same < 0)
        more.firsts.insert(meaning, index);
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

/// Whether the value is new. The driver reports some bits although they have not changed.
bool WatchList::takeValues(WatchEntry* entry, const QList<qint64>& values, qint64 now)
{
    if (values.size() != entry->width)
        return false;
    const qint64 value = values.first();
    const QList<qint64> others = values.mid(1);
    if (entry->isKnown && entry->value == value && entry->others == others)
        return false;
    if (entry->isKnown)
        entry->changedAt = now;
    entry->isKnown = true;
    entry->value = value;
    entry->others = others;
    return true;
}

QList<int> WatchList::onRead(const VARIABLE& job, const ValueSource& valuesOf, qint64 now)
{
    QList<int> toTell;
    for (const int index : coveredBy(job)) {
        WatchEntry& entry = m_entries[index];
        const bool isBack = hasFailed(entry);
        setState(&entry, WatchState::Ok);
        entry.readAt = now;
        // Zero is what the driver's cache starts with: reading it is no change. Nor does the driver
        // report what another read has brought before, of a part of a value alone.
        const bool isToTake = !entry.isKnown || entry.width > 1;
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
