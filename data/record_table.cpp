#include "data/record_table.h"

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
    return mixed(mixed(letters, static_cast<quint32>(station)), static_cast<quint32>(address));
}

} // namespace

void RecordTable::clear()
{
    m_slots.clear();
    m_keys = 0;
}

void RecordTable::put(const Slot& entry)
{
    const size_t mask = m_slots.size() - 1;
    size_t slot = entry.hash & mask;
    while (m_slots[slot].record != NONE)
        slot = (slot + 1) & mask;
    m_slots[slot] = entry;
}

void RecordTable::grow()
{
    const Slot empty = {0, NONE};
    std::vector<Slot> old(m_slots.empty() ? FIRST_SIZE : m_slots.size() * 2, empty);
    old.swap(m_slots);
    for (size_t i = 0; i < old.size(); ++i) {
        if (old[i].record != NONE)
            put(old[i]);
    }
}

void RecordTable::add(const QList<_DATA_>& list, int record)
{
    // Four fifths full.
    if (m_slots.empty() || static_cast<size_t>(m_keys) * 5 >= m_slots.size() * 4)
        grow();
    const _DATA_& area = list.at(record);
    const Slot entry = {hashOf(area.station, area.regType, area.address), record};
    if (findHashed(list, entry.hash, area.station, area.regType, area.address) == NONE) {
        put(entry);
        ++m_keys;
    }
}

int RecordTable::find(const QList<_DATA_>& list, int station, const QString& regType,
                      int address) const
{
    if (m_slots.empty())
        return NONE;
    return findHashed(list, hashOf(station, regType, address), station, regType, address);
}

int RecordTable::findHashed(const QList<_DATA_>& list, quint32 hash, int station,
                            const QString& regType, int address) const
{
    const size_t mask = m_slots.size() - 1;
    for (size_t slot = hash & mask; m_slots[slot].record != NONE; slot = (slot + 1) & mask) {
        if (m_slots[slot].hash == hash
            && isRecordOf(list.at(m_slots[slot].record), station, regType, address))
            return m_slots[slot].record;
    }
    return NONE;
}
