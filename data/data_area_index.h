/// Finds records of the cache without searching the list.
#ifndef TARVELAN_DATA_DATA_AREA_INDEX_H
#define TARVELAN_DATA_DATA_AREA_INDEX_H

#include "data/record_table.h"
#include "driver/wrapping.h"

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
        const int group = findGroup(list, station, regType, address);
        const int known = recordIn(group, address);
        return known != RecordTable::NONE ? known : search(list, station, regType, address);
    }

    /// The same by searching, for any list.
    static int findInList(const QList<_DATA_>& list, int station, const QString& regType,
                          int address);

    /// The records of up to RecordTable::FOUND_AT_ONCE keys of the list in hand, as far as they
    /// are known, in the time of a few: see RecordTable.
    void findKnown(const QList<_DATA_>& list, const RecordKey* keys, int count, int* records) const
    {
        m_table.findRecords(list, keys, count, records);
    }

    /// The group of that address, or -1 when no record of it is known. For the list in hand;
    /// good until the next record is created or the list is let go.
    int findGroup(const QList<_DATA_>& list, int station, const QString& regType, int address)
    {
        // The distance is looked at first: it touches no record.
        const int ahead =
            wrapSub(RecordTable::firstOfGroup(address), RecordTable::firstOfGroup(m_recent));
        if ((ahead != 0 && ahead != RecordTable::GROUP_SIZE)
            || !m_table.isGroupOf(m_group, list, station, regType, m_recent))
            m_group = m_table.findGroup(list, station, regType, address);
        else if (ahead != 0)
            m_group = m_table.nextGroup(m_group, list, station, regType, address);
        m_recent = address;
        return m_group;
    }

    /// The same for the group behind `group`, when `address` is its first address.
    int nextGroup(int group, const QList<_DATA_>& list, int station, const QString& regType,
                  int address)
    {
        m_group = m_table.nextGroup(group, list, station, regType, address);
        m_recent = address;
        return m_group;
    }

    /// The records known of a group by RecordTable::placeOf(), each the first of its key.
    const int* recordsOf(int group) const { return m_table.records(group); }

    /// Forgets everything, as after clearing the list.
    void reset();

private:
    int recordIn(int group, int address) const
    {
        return group != RecordTable::NONE ? recordsOf(group)[RecordTable::placeOf(address)]
                                          : RecordTable::NONE;
    }

    int search(const QList<_DATA_>& list, int station, const QString& regType, int address);

    RecordTable m_table;
    QList<_DATA_> m_letGo; // the list as the driver let it go; empty while in hand
    int m_indexed;         // records in the table, or known to repeat a key
    int m_group;           // of the address asked for last: the next is often in it or behind it
    int m_recent;          // that address
    bool m_isInHand;
};

/// The index of `driver.dataAreas`, as long as that object lives.
extern DataAreaIndex* dataAreaIndex;

#endif
