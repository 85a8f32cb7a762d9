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

/// Knows records by their index in one list, which the caller keeps: each call gets it anew.
class RecordTable
{
public:
    static const int NONE = -1;

    RecordTable() : m_keys(0) {}

    /// Adds a record of the list. One whose key is there already stays out: the first is
    /// found. When memory runs out, the table stays as it was.
    void add(const QList<_DATA_>& list, int record);

    /// Index of the record of that key, or NONE.
    int find(const QList<_DATA_>& list, int station, const QString& regType, int address) const;

    /// Keys in the table, no more than records added.
    int keys() const { return m_keys; }

    void clear();

private:
    struct Slot {
        quint32 hash;
        int record; // NONE: empty
    };

    void grow();
    void put(const Slot& entry);
    int findHashed(const QList<_DATA_>& list, quint32 hash, int station, const QString& regType,
                   int address) const;

    std::vector<Slot> m_slots; // a power of two of them
    int m_keys;
};

#endif
