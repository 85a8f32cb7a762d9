/// Finds records of the cache without searching the list.
#ifndef TARVELAN_DRIVER_DATA_AREA_INDEX_H
#define TARVELAN_DRIVER_DATA_AREA_INDEX_H

#include "driver/records.h"

#include <QtCore/QList>

#include <vector>

/// A hash table beside `tarvelan::dataAreas`. Between calls of the driver and
/// inside the value-change function the list may be cleared or appended to from
/// outside: a search first compares a few records with what was indexed, and
/// indexes anew when they differ. Every hit is verified against its record.
class DataAreaIndex
{
public:
    DataAreaIndex();

    /// Index of the first record of that key in `list`, or -1.
    int find(const QList<_DATA_>& list, int station, const QString& regType, int address)
    {
        // The next address of a request is usually the next record. When a key is
        // there twice, only the table knows which record is the first.
        const int next = m_last + 1;
        if (m_undisturbed && m_refreshed && next < m_known && m_used == m_known
            && matches(list.at(next), station, regType, address)) {
            m_last = next;
            return next;
        }
        return search(list, station, regType, address);
    }

    /// The same by searching, for any list.
    static int findInList(const QList<_DATA_>& list, int station, const QString& regType,
                          int address);

    /// Forgets everything, as after clearing the list.
    void reset();

    /// While true, nobody else can touch the list, so one comparison serves all
    /// searches. Returns what it was.
    bool setUndisturbed(bool undisturbed);

private:
    struct Slot {
        quint32 hash;
        int record; // -1: empty
    };

    /// What record number `record` was when it was indexed.
    struct Sample {
        int record;
        int station;
        QString regType;
        int address;
    };

    static bool sameName(const QString& a, const QString& b)
    {
        return a.constData() == b.constData() || a == b;
    }

    template <typename Record>
    static bool matches(const Record& record, int station, const QString& regType, int address)
    {
        return record.address == address && record.station == station
               && sameName(record.regType, regType);
    }

    int search(const QList<_DATA_>& list, int station, const QString& regType, int address);
    void refresh(const QList<_DATA_>& list);
    bool isUnchanged(const QList<_DATA_>& list) const;
    void add(const QList<_DATA_>& list, int record);
    void grow();
    void put(const Slot& entry);
    int findInTable(const QList<_DATA_>& list, quint32 hash, int station, const QString& regType,
                    int address) const;

    std::vector<Slot> m_slots;     // a power of two of them
    std::vector<Sample> m_samples; // the first records, then ever fewer
    Sample m_end;                  // the last record
    int m_known;                   // records indexed, from the list's start
    int m_used;                    // slots in use
    int m_last;                    // record found last
    bool m_undisturbed;
    bool m_refreshed; // since the list was last disturbed
};

/// The index of `driver.dataAreas`, as long as that object lives.
extern DataAreaIndex* dataAreaIndex;

#endif
