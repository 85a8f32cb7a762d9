#include "driver/data_area_index.h"

namespace
{

const size_t FIRST_SIZE = 64;
const int EMPTY = -1;
// Lists up to this size are compared whole, longer ones at every eighth of these
// first records, at powers of two and at the end.
const int EXACT_SIZE = 64;
const size_t STRIDE = 8;

quint32 mixed(quint32 hash, quint32 value)
{
    hash = (hash ^ value) * 0x9E3779B1u;
    return hash ^ hash >> 15;
}

// Names are short: their length and three letters tell them apart.
quint32 hashOf(int station, const QString& regType, int address)
{
    const int size = static_cast<int>(regType.size());
    quint32 letters = static_cast<quint32>(size);
    if (size > 0)
        letters += (static_cast<quint32>(regType.at(0).unicode()) << 8)
                   + (static_cast<quint32>(regType.at(size / 2).unicode()) << 16)
                   + (static_cast<quint32>(regType.at(size - 1).unicode()) << 24);
    return mixed(mixed(letters, static_cast<quint32>(station)), static_cast<quint32>(address));
}

bool isSampled(int record)
{
    return record < EXACT_SIZE || (record & (record - 1)) == 0;
}

} // namespace

DataAreaIndex::DataAreaIndex()
    : m_end(Sample()),
      m_known(0),
      m_used(0),
      m_last(EMPTY),
      m_undisturbed(false),
      m_refreshed(false)
{
}

void DataAreaIndex::reset()
{
    m_slots.clear();
    m_samples.clear();
    m_known = 0;
    m_used = 0;
    m_last = EMPTY;
}

bool DataAreaIndex::setUndisturbed(bool undisturbed)
{
    const bool before = m_undisturbed;
    if (before != undisturbed)
        m_refreshed = false;
    m_undisturbed = undisturbed;
    return before;
}

bool DataAreaIndex::isUnchanged(const QList<_DATA_>& list) const
{
    if (m_known > list.size())
        return false;
    if (m_known == 0)
        return true;
    const size_t stride = m_known <= EXACT_SIZE ? 1 : STRIDE;
    for (size_t i = 0; i < m_samples.size(); i += i < EXACT_SIZE ? stride : 1) {
        const Sample& sample = m_samples[i];
        if (!matches(list.at(sample.record), sample.station, sample.regType, sample.address))
            return false;
    }
    return matches(list.at(m_end.record), m_end.station, m_end.regType, m_end.address);
}

void DataAreaIndex::refresh(const QList<_DATA_>& list)
{
    if (!(m_undisturbed && m_refreshed) && !isUnchanged(list))
        reset();
    m_refreshed = true;
    while (m_known < list.size())
        add(list, m_known);
}

void DataAreaIndex::put(const Slot& entry)
{
    const size_t mask = m_slots.size() - 1;
    size_t slot = entry.hash & mask;
    while (m_slots[slot].record != EMPTY)
        slot = (slot + 1) & mask;
    m_slots[slot] = entry;
}

// Called when the table is four fifths full.
void DataAreaIndex::grow()
{
    std::vector<Slot> old;
    old.swap(m_slots);
    const Slot empty = {0, EMPTY};
    m_slots.assign(old.empty() ? FIRST_SIZE : old.size() * 2, empty);
    for (size_t i = 0; i < old.size(); ++i) {
        if (old[i].record != EMPTY)
            put(old[i]);
    }
}

// A record whose key is there already stays out: the first one is found.
void DataAreaIndex::add(const QList<_DATA_>& list, int record)
{
    if (m_slots.empty() || static_cast<size_t>(m_used) * 5 >= m_slots.size() * 4)
        grow();
    const _DATA_& area = list.at(record);
    const Slot entry = {hashOf(area.station, area.regType, area.address), record};
    if (findInTable(list, entry.hash, area.station, area.regType, area.address) == EMPTY) {
        put(entry);
        ++m_used;
    }
    const Sample sample = {record, area.station, area.regType, area.address};
    if (isSampled(record))
        m_samples.push_back(sample);
    m_end = sample;
    m_known = record + 1;
}

int DataAreaIndex::findInTable(const QList<_DATA_>& list, quint32 hash, int station,
                               const QString& regType, int address) const
{
    if (m_slots.empty())
        return EMPTY;
    const size_t mask = m_slots.size() - 1;
    for (size_t slot = hash & mask; m_slots[slot].record != EMPTY; slot = (slot + 1) & mask) {
        const int record = m_slots[slot].record;
        if (m_slots[slot].hash == hash && matches(list.at(record), station, regType, address))
            return record;
    }
    return EMPTY;
}

int DataAreaIndex::findInList(const QList<_DATA_>& list, int station, const QString& regType,
                              int address)
{
    for (int i = 0; i < list.size(); ++i) {
        if (matches(list.at(i), station, regType, address))
            return i;
    }
    return EMPTY;
}

int DataAreaIndex::search(const QList<_DATA_>& list, int station, const QString& regType,
                          int address)
{
    refresh(list);
    // The address just reported is usually the one looked up last.
    if (m_used == m_known && m_last != EMPTY && matches(list.at(m_last), station, regType, address))
        return m_last;
    const int found =
        findInTable(list, hashOf(station, regType, address), station, regType, address);
    if (found != EMPTY)
        m_last = found;
    return found;
}
