#include "data/record_table.h"

#include <algorithm>

namespace
{

const size_t FIRST_SIZE = 64;

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
    return mixed(mixed(letters, static_cast<quint32>(station)),
                 static_cast<quint32>(address) / RecordTable::GROUP_SIZE);
}

} // namespace

void RecordTable::clear()
{
    m_slots.clear();
    m_groups.clear();
}

void RecordTable::put(const Slot& entry)
{
    const size_t mask = m_slots.size() - 1;
    size_t slot = entry.hash & mask;
    while (m_slots[slot].group != NONE)
        slot = (slot + 1) & mask;
    m_slots[slot] = entry;
}

void RecordTable::grow()
{
    const Slot empty = {0, NONE};
    std::vector<Slot> old(m_slots.empty() ? FIRST_SIZE : m_slots.size() * 2, empty);
    old.swap(m_slots);
    for (size_t i = 0; i < old.size(); ++i) {
        if (old[i].group != NONE)
            put(old[i]);
    }
}

void RecordTable::add(const QList<_DATA_>& list, int record)
{
    const _DATA_& area = list.at(record);
    const int place = placeOf(area.address);
    const quint32 hash = hashOf(area.station, area.regType, area.address);
    const int group = findHashed(list, hash, area.station, area.regType, area.address);
    if (group != NONE) {
        int& known = m_groups[static_cast<size_t>(group)].records[place];
        known = known == NONE ? record : known;
        return;
    }
    // Four fifths full.
    if (m_groups.size() * 5 >= m_slots.size() * 4)
        grow();
    Group made;
    std::fill(made.records, made.records + GROUP_SIZE, static_cast<int>(NONE));
    made.records[place] = record;
    made.next = NONE;
    m_groups.push_back(made);
    const Slot entry = {hash, static_cast<int>(m_groups.size()) - 1};
    put(entry);
}

int RecordTable::findGroup(const QList<_DATA_>& list, int station, const QString& regType,
                           int address) const
{
    return findHashed(list, hashOf(station, regType, address), station, regType, address);
}

// The first of that hash, looked at by nothing but the hash.
int RecordTable::likelyGroup(quint32 hash) const
{
    const size_t mask = m_slots.size() - 1;
    size_t slot = hash & mask;
    while (m_slots[slot].group != NONE && m_slots[slot].hash != hash)
        slot = (slot + 1) & mask;
    return m_slots[slot].group;
}

// Step by step for all keys, each step fetching ahead what the next one reads.
void RecordTable::findRecords(const QList<_DATA_>& list, const RecordKey* keys, int count,
                              int* records) const
{
    std::fill(records, records + count, static_cast<int>(NONE));
    if (m_slots.empty())
        return;
    quint32 hashes[FOUND_AT_ONCE];
    for (int i = 0; i < count; ++i) {
        hashes[i] = hashOf(keys[i].station, *keys[i].regType, keys[i].address);
        __builtin_prefetch(&m_slots[hashes[i] & (m_slots.size() - 1)]);
    }
    int groups[FOUND_AT_ONCE];
    for (int i = 0; i < count; ++i) {
        groups[i] = likelyGroup(hashes[i]);
        if (groups[i] != NONE)
            __builtin_prefetch(&m_groups[static_cast<size_t>(groups[i])]);
    }
    for (int i = 0; i < count; ++i) {
        if (groups[i] == NONE)
            continue;
        records[i] = this->records(groups[i])[placeOf(keys[i].address)];
        if (records[i] != NONE)
            __builtin_prefetch(&list.at(records[i]).regType, 1);
    }
    for (int i = 0; i < count; ++i) {
        if (records[i] != NONE
            && !isRecordOf(list.at(records[i]), keys[i].station, *keys[i].regType, keys[i].address))
            records[i] = NONE;
    }
}

int RecordTable::findHashed(const QList<_DATA_>& list, quint32 hash, int station,
                            const QString& regType, int address) const
{
    if (m_slots.empty())
        return NONE;
    const size_t mask = m_slots.size() - 1;
    for (size_t slot = hash & mask; m_slots[slot].group != NONE; slot = (slot + 1) & mask) {
        if (m_slots[slot].hash == hash
            && isGroupOf(m_slots[slot].group, list, station, regType, address))
            return m_slots[slot].group;
    }
    return NONE;
}

bool RecordTable::hasNeighbour(int group, const QList<_DATA_>& list, int station,
                               const QString& regType, int address) const
{
    const int* record = records(group);
    while (*record == NONE)
        ++record;
    const _DATA_& area = list.at(*record);
    return firstOfGroup(area.address) == firstOfGroup(address) && area.station == station
           && sameName(area.regType, regType);
}
