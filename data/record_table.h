/// A hash table of the records of a list by station, register type and address.
#ifndef TARVELAN_DATA_RECORD_TABLE_H
#define TARVELAN_DATA_RECORD_TABLE_H

#include "driver/records.h"

#include <QtCore/QList>

#include <vector>

inline bool sameName(const QString& a, const QString& b)
{
    return a.isSharedWith(b) || a == b;
}

/// True when the record holds that address of that station and register type.
inline bool isRecordOf(const _DATA_& area, int station, const QString& regType, int address)
{
    return area.address == address && area.station == station && sameName(area.regType, regType);
}

/// What tells a record from all others.
struct RecordKey {
    int station;
    const QString* regType;
    int address;
};

/// Knows records by their index in one list, which the caller keeps: each call gets it anew.
/// Requests ask for addresses that follow each other, so the table holds groups of eight, and
/// each group knows the next.
class RecordTable
{
public:
    static const int NONE = -1;
    /// Addresses of a group, all of one station and type. The first is a multiple of it.
    static const int GROUP_SIZE = 8;

    /// The first address of an address's group.
    static int firstOfGroup(int address) { return address & ~(GROUP_SIZE - 1); }

    /// Position of an address in its group.
    static int placeOf(int address) { return address & (GROUP_SIZE - 1); }

    /// Adds a record of the list. One whose key is there already stays out: the first is
    /// found. When memory runs out, the table stays as it was.
    void add(const QList<_DATA_>& list, int record);

    /// Number of the group of that address, or NONE while no record of it was added.
    int findGroup(const QList<_DATA_>& list, int station, const QString& regType,
                  int address) const;

    /// Keys that findRecords() takes at most.
    static const int FOUND_AT_ONCE = 16;

    /// The record of each key, or NONE where it was not added or is not where it mostly lies.
    /// The processor waits for memory once for all of them, not for each.
    void findRecords(const QList<_DATA_>& list, const RecordKey* keys, int count,
                     int* records) const;

    /// Whether it is the group of that address. No group is NONE.
    bool isGroupOf(int group, const QList<_DATA_>& list, int station, const QString& regType,
                   int address) const
    {
        if (group == NONE)
            return false;
        const int record = records(group)[placeOf(address)];
        if (Q_LIKELY(record != NONE))
            return isRecordOf(list.at(record), station, regType, address);
        return hasNeighbour(group, list, station, regType, address);
    }

    /// The group of the addresses behind those of `group`, the first of which is `address`, or
    /// NONE. Searched once.
    int nextGroup(int group, const QList<_DATA_>& list, int station, const QString& regType,
                  int address)
    {
        const int known = m_groups[static_cast<size_t>(group)].next;
        return known != NONE ? known : linkNext(group, findGroup(list, station, regType, address));
    }

    /// The records of a group by place, NONE where there is none. Good until the next add().
    const int* records(int group) const { return m_groups[static_cast<size_t>(group)].records; }

    void clear();

private:
    struct Group {
        int records[GROUP_SIZE]; // at least one
        int next;                // group of the next addresses; NONE: not known
    };

    struct Slot {
        quint32 hash;
        int group; // NONE: empty
    };

    int linkNext(int group, int next) { return m_groups[static_cast<size_t>(group)].next = next; }
    void grow();
    void put(const Slot& entry);
    int likelyGroup(quint32 hash) const;
    int findHashed(const QList<_DATA_>& list, quint32 hash, int station, const QString& regType,
                   int address) const;
    bool hasNeighbour(int group, const QList<_DATA_>& list, int station, const QString& regType,
                      int address) const;

    std::vector<Slot> m_slots; // a power of two of them
    std::vector<Group> m_groups;
};

#endif
