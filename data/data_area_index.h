/// Finds records of the cache without searching the list.
#ifndef TARVELAN_DATA_DATA_AREA_INDEX_H
#define TARVELAN_DATA_DATA_AREA_INDEX_H

#include "data/record_table.h"

#include <vector>

/// A table beside `tarvelan::dataAreas`. Between calls of the driver and inside
/// the value-change function anybody may change that list. So the driver takes it up
/// before it searches and lets it go afterwards; in between, the index holds an
/// implicitly shared copy. A list that is no longer shared with that copy was open for
/// writing, and is indexed anew.
class DataAreaIndex
{
public:
    DataAreaIndex();

    /// Nobody but the driver touches the list from here on.
    void takeUp(const QList<_DATA_>& list)
    {
        if (!list.isSharedWith(m_letGo))
            reset();
        QList<_DATA_>().swap(m_letGo); // else the driver's own writing would copy the list
        m_isInHand = true;
    }

    /// Anybody may change the list from here on.
    void letGo(const QList<_DATA_>& list)
    {
        m_letGo = list;
        m_isInHand = false;
    }

    bool isInHand() const { return m_isInHand; }

    /// Index of the first record of that key in the list in hand, or -1.
    int find(const QList<_DATA_>& list, int station, const QString& regType, int address)
    {
        // Usually the record that came next the last time, or the one found last.
        if (m_expected < m_runEnd && isRecordOf(list.at(m_expected), station, regType, address))
            return foundAt(m_expected);
        if (m_last < m_runEnd && m_last != NONE
            && isRecordOf(list.at(m_last), station, regType, address))
            return m_last;
        return search(list, station, regType, address);
    }

    /// The same by searching, for any list.
    static int findInList(const QList<_DATA_>& list, int station, const QString& regType,
                          int address);

    /// The records from `runStart()` to before `runEnd()` lie behind the one found
    /// last and are each the first of its key. None when another record than the next
    /// is expected. For the list in hand.
    int runStart() const
    {
        return m_expected == m_last + 1 && m_expected < m_runEnd ? m_expected : m_runEnd;
    }
    int runEnd() const { return m_runEnd; }

    /// Makes a record of the run the one found last.
    void goOnFrom(int record) { foundAt(record); }

    /// Forgets everything, as after clearing the list.
    void reset();

private:
    static const int NONE = RecordTable::NONE;

    int foundAt(int record)
    {
        m_last = record;
        m_expected = m_followers[static_cast<size_t>(record)];
        return record;
    }

    int search(const QList<_DATA_>& list, int station, const QString& regType, int address);
    void addNewRecords(const QList<_DATA_>& list);

    RecordTable m_table;
    std::vector<int> m_followers; // of each record indexed: the one found after it last time
    QList<_DATA_> m_letGo;        // the list as the driver let it go; empty while in hand
    int m_last;                   // record found last, or NONE
    int m_expected;               // its follower; the first record when there is none
    int m_runEnd;                 // records indexed, if no key is there twice; else 0
    bool m_isInHand;
};

/// The index of `driver.dataAreas`, as long as that object lives.
extern DataAreaIndex* dataAreaIndex;

#endif
