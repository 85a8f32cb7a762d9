#include "driver/data_area_index.h"

namespace
{

const size_t FIRST_SIZE = 64;
const int EMPTY = -1;
const int STALE = -2; // the list is not what was indexed
// Lists up to this size are compared whole, longer ones at their ends or at these
// first records, at powers of two and at the end.
const int EXACT_SIZE = 64;

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
      m_last(NONE),
      m_expected(0),
      m_trustedEnd(0),
      m_undisturbed(false),
      m_trust(NOTHING_COMPARED)
{
}

void DataAreaIndex::reset()
{
    m_slots.clear();
    m_followers.clear();
    m_samples.clear();
    m_known = 0;
    m_used = 0;
    m_last = NONE;
    m_expected = 0;
    m_trustedEnd = 0;
}

bool DataAreaIndex::setUndisturbed(bool undisturbed)
{
    const bool before = m_undisturbed;
    if (before != undisturbed) {
        m_trust = NOTHING_COMPARED;
        m_trustedEnd = 0;
    }
    m_undisturbed = undisturbed;
    return before;
}

bool DataAreaIndex::isUnchanged(const QList<_DATA_>& list, const Sample& sample)
{
    return isRecordOf(list.at(sample.record), sample.station, sample.regType, sample.address);
}

bool DataAreaIndex::samplesUnchanged(const QList<_DATA_>& list) const
{
    for (size_t i = 0; i < m_samples.size(); ++i) {
        if (!isUnchanged(list, m_samples[i]))
            return false;
    }
    return true;
}

bool DataAreaIndex::endsUnchanged(const QList<_DATA_>& list) const
{
    if (m_known > list.size())
        return false;
    if (m_known <= EXACT_SIZE)
        return samplesUnchanged(list);
    return isUnchanged(list, m_samples[0]) && isUnchanged(list, m_end);
}

/// Before it is said that a key is nowhere, at most once per undisturbed time.
bool DataAreaIndex::hasSameSamples(const QList<_DATA_>& list)
{
    if (m_trust == SAMPLES_COMPARED)
        return true;
    if (m_undisturbed)
        m_trust = SAMPLES_COMPARED;
    return samplesUnchanged(list);
}

void DataAreaIndex::refresh(const QList<_DATA_>& list)
{
    if (m_trust == NOTHING_COMPARED && !endsUnchanged(list))
        reset();
    if (m_trust == NOTHING_COMPARED && m_undisturbed)
        m_trust = ENDS_COMPARED;
    while (m_known < list.size())
        add(list, m_known);
    m_trustedEnd = m_undisturbed && m_used == m_known ? m_known : 0;
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
    if (findInTable(list, entry.hash, area.station, area.regType, area.address) < 0) {
        put(entry);
        ++m_used;
    }
    const Sample sample = {record, area.station, area.regType, area.address};
    if (isSampled(record))
        m_samples.push_back(sample);
    m_followers.push_back(record + 1);
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
        if (m_slots[slot].hash != hash)
            continue;
        const int record = m_slots[slot].record;
        const _DATA_& area = list.at(record);
        if (isRecordOf(area, station, regType, address))
            return record;
        if (hashOf(area.station, area.regType, area.address) != hash)
            return STALE;
    }
    return EMPTY;
}

int DataAreaIndex::findInList(const QList<_DATA_>& list, int station, const QString& regType,
                              int address)
{
    for (int i = 0; i < list.size(); ++i) {
        if (isRecordOf(list.at(i), station, regType, address))
            return i;
    }
    return EMPTY;
}

int DataAreaIndex::search(const QList<_DATA_>& list, int station, const QString& regType,
                          int address)
{
    refresh(list);
    // The address just reported is usually the one looked up last.
    if (m_used == m_known && m_last != NONE
        && isRecordOf(list.at(m_last), station, regType, address))
        return m_last;
    const quint32 hash = hashOf(station, regType, address);
    int found = findInTable(list, hash, station, regType, address);
    if (found == EMPTY && !hasSameSamples(list))
        found = STALE;
    if (found == STALE) {
        reset();
        refresh(list);
        found = findInTable(list, hash, station, regType, address);
    }
    if (found == EMPTY)
        return EMPTY;
    if (m_last != NONE)
        m_followers[static_cast<size_t>(m_last)] = found;
    return foundAt(found);
}
