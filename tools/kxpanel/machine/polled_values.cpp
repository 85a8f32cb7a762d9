#include "kxpanel/machine/polled_values.h"

#include "registers/register_types.h"

#include <algorithm>
#include <tuple>

namespace kxpanel
{

namespace
{

const qint64 NEVER = -1; // on the list's clock

/// With times of the list's clock.
Reading readingOf(const kx::WatchEntry& entry)
{
    Reading reading;
    reading.number = entry.name.toInt();
    reading.type = entry.type;
    reading.station = entry.station;
    reading.address = entry.address;
    reading.state = entry.state;
    const bool wasRead = entry.readAt > 0 || entry.state == kx::WatchState::Ok;
    if (wasRead) // else a write that failed may have left a value
        reading.raw = entry.raw();
    reading.readAt = wasRead ? entry.readAt : NEVER;
    reading.changedAt = entry.changedAt > 0 ? entry.changedAt : NEVER;
    return reading;
}

/// With times of the day.
Reading dated(Reading reading, const SessionTimes& times)
{
    for (qint64* const time : {&reading.readAt, &reading.changedAt})
        *time = *time == NEVER ? 0 : times.timeOfDay(*time);
    return reading;
}

/// Of one bit of a word the others do not count.
bool isOther(const kx::WatchEntry& entry, const QList<qint64>& before, const QList<qint64>& now)
{
    if (before.isEmpty() || now.isEmpty())
        return false;
    const int bit = entry.valueFormat().bit;
    return bit < 0 ? before != now : ((before.first() ^ now.first()) >> bit & 1) != 0;
}

} // namespace

QList<kx::Tag> PolledValues::tags() const
{
    QList<kx::Tag> tags;
    tags.reserve(m_values.size());
    for (const WatchedValue& value : m_values) {
        kx::Tag tag = value.tag;
        tag.name = QString::number(value.number);
        tag.interval = std::max(tag.interval, 0);
        tags << tag;
    }
    return tags;
}

bool PolledValues::isBefore(const Place& one, const Place& other)
{
    return std::make_tuple(one.station, registerTypeRow(one.type), one.address)
           < std::make_tuple(other.station, registerTypeRow(other.type), other.address);
}

void PolledValues::takeList(const kx::WatchList& list)
{
    m_places.clear();
    int index = 0;
    for (const kx::WatchEntry& entry : list.entries())
        m_places.push_back({entry.station, entry.type, entry.address, entry.width, index++});
    std::sort(m_places.begin(), m_places.end(), isBefore);
    m_isMarked.assign(m_places.size(), false);
    m_answered.assign(m_places.size(), {});
    m_isChange.assign(m_places.size(), false);
    m_marked.clear();
    for (const Reading& news : qAsConst(m_news))
        keepEarlier(news);
    m_news.clear(); // by index
    markAll();
}

void PolledValues::markAll()
{
    for (int index = 0; index < static_cast<int>(m_isMarked.size()); ++index)
        mark({index});
}

void PolledValues::mark(const QList<int>& indexes)
{
    for (const int index : indexes) {
        if (!m_isMarked[static_cast<size_t>(index)])
            m_marked << index;
        m_isMarked[static_cast<size_t>(index)] = true;
    }
}

void PolledValues::takeNews(const kx::WatchList& list, const QList<int>& indexes)
{
    mark(indexes);
    for (const int index : indexes) {
        const auto before = m_news.constFind(index);
        if (before != m_news.constEnd())
            keepEarlier(*before);
        m_news.insert(index, readingAt(list, index));
        m_isChange[static_cast<size_t>(index)] = false;
    }
}

void PolledValues::keepEarlier(const Reading& reading)
{
    if (reading.state == kx::WatchState::Ok)
        m_earlier << reading;
}

void PolledValues::forgetEarlier()
{
    m_news.clear();
    m_earlier.clear();
}

/// The driver shows what is being written until it has failed, and the list with it.
Reading PolledValues::readingAt(const kx::WatchList& list, int index) const
{
    Reading reading = readingOf(list.entries().at(index));
    const QList<qint64>& answered = m_answered[static_cast<size_t>(index)];
    if (!answered.isEmpty())
        reading.raw = answered;
    return reading;
}

void PolledValues::markRead(const kx::WatchList& list, const kx::AddressRange& polled,
                            const QList<qint64>& answered)
{
    if (!polled.type)
        return;
    const Place from = {polled.station, polled.type, polled.address, 1, 0};
    const int end = polled.address + polled.values;
    auto place = std::lower_bound(m_places.begin(), m_places.end(), from, isBefore);
    for (; place != m_places.end() && place->station == polled.station && place->type == polled.type
           && place->address < end;
         ++place) {
        if (place->address + place->width > end)
            continue;
        mark({place->index});
        takeAnswer(list, place->index, answered.mid(place->address - polled.address, place->width));
    }
}

void PolledValues::takeAnswer(const kx::WatchList& list, int index, const QList<qint64>& answered)
{
    const auto at = static_cast<size_t>(index);
    const auto news = m_news.find(index);
    if (m_isChange[at] && news != m_news.end())
        keepEarlier(*news);
    if (m_isChange[at] || news != m_news.end()) // it may have been read since, and was the same
        m_news.insert(index, readingAt(list, index));
    m_isChange[at] = isOther(list.entries().at(index), m_answered[at], answered);
    m_answered[at] = answered;
}

QVector<Reading> PolledValues::takeMarked(const kx::WatchList& list, const SessionTimes& times,
                                          bool isCutOff)
{
    QVector<Reading> readings;
    readings.reserve(m_earlier.size() + m_marked.size());
    for (const Reading& earlier : qAsConst(m_earlier))
        readings << dated(earlier, times);
    for (const int index : qAsConst(m_marked)) {
        const Reading latest = dated(readingAt(list, index), times);
        const bool isPast = isCutOff && latest.state == kx::WatchState::Ok;
        const auto at = static_cast<size_t>(index);
        if (isPast && (m_news.contains(index) || m_isChange[at]))
            readings << latest;
        readings << latest;
        if (isPast)
            readings.last().state = kx::WatchState::NoAnswer;
        m_isMarked[at] = false;
        m_isChange[at] = false;
    }
    m_marked.clear();
    forgetEarlier();
    return readings;
}

} // namespace kxpanel
