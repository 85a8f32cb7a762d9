// Which entries a watch list has.

#include "panel/watch/watch_list.h"

#include "panel/files/shared_addresses.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QtCore/QPair>
#include <QtCore/QSet>

namespace kx
{

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
    const SharedAddresses shared(tags);
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
            entry.isShared = shared.hold(tag, i / width);
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

} // namespace kx
