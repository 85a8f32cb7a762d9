/// Finds records of the cache without searching the list.
#ifndef TARVELAN_DRIVER_DATA_AREA_INDEX_H
#define TARVELAN_DRIVER_DATA_AREA_INDEX_H

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

/// A hash table beside `tarvelan::dataAreas`. Between calls of the driver and
/// inside the value-change function the list may be cleared or appended to from
/// outside, so a search first looks whether the list still ends as it did, and
/// before it finds nothing it compares samples from all over the list. Every hit
/// is verified against its record.
class DataAreaIndex
{
public:
    DataAreaIndex();

    /// Index of the first record of that key in `list`, or -1.
    int find(const QList<_DATA_>& list, int station, const QString& regType, int address)
    {
        // Usually the record that came next the last time, or the one found last.
        if (m_expected < m_trustedEnd && isRecordOf(list.at(m_expected), station, regType, address))
            return foundAt(m_expected);
        if (m_last < m_trustedEnd && m_last != NONE
            && isRecordOf(list.at(m_last), station, regType, address))
            return m_last;
        return search(list, station, regType, address);
    }

    /// The same by searching, for any list.
    static int findInList(const QList<_DATA_>& list, int station, const QString& regType,
                          int address);

    /// The records from `runStart()` to before `runEnd()` lie behind the one found
    /// last and are each the first of its key. None when the list may have changed,
    /// or when another record than the next is expected.
    int runStart() const
    {
        return m_expected == m_last + 1 && m_expected < m_trustedEnd ? m_expected : m_trustedEnd;
    }
    int runEnd() const { return m_trustedEnd; }

    /// Makes a record of the run the one found last.
    void goOnFrom(int record) { foundAt(record); }

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

    /// How much of the list was compared since it was last disturbed.
    enum Trust { NOTHING_COMPARED, ENDS_COMPARED, SAMPLES_COMPARED };

    static const int NONE = -1;

    int foundAt(int record)
    {
        m_last = record;
        m_expected = m_followers[static_cast<size_t>(record)];
        return record;
    }

    int search(const QList<_DATA_>& list, int station, const QString& regType, int address);
    void refresh(const QList<_DATA_>& list);
    static bool isUnchanged(const QList<_DATA_>& list, const Sample& sample);
    bool endsUnchanged(const QList<_DATA_>& list) const;
    bool samplesUnchanged(const QList<_DATA_>& list) const;
    bool hasSameSamples(const QList<_DATA_>& list);
    void add(const QList<_DATA_>& list, int record);
    void grow();
    void put(const Slot& entry);
    int findInTable(const QList<_DATA_>& list, quint32 hash, int station, const QString& regType,
                    int address) const;

    std::vector<Slot> m_slots;     // a power of two of them
    std::vector<int> m_followers;  // of each record: the one found after it last time
    std::vector<Sample> m_samples; // the first records, then ever fewer
    Sample m_end;                  // the last record
    int m_known;                   // records indexed, from the list's start
    int m_used;                    // slots in use
    int m_last;                    // record found last, or NONE
    int m_expected;                // its follower; the first record when there is none
    int m_trustedEnd;              // m_known while the list was compared, nobody disturbs
                                   // it and no key is there twice; else 0
    bool m_undisturbed;
    Trust m_trust;
};

/// The index of `driver.dataAreas`, as long as that object lives.
extern DataAreaIndex* dataAreaIndex;

#endif
