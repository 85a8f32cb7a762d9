#include "data/data_area_index.h"

DataAreaIndex* dataAreaIndex;

DataAreaIndex::DataAreaIndex() : m_last(NONE), m_expected(0), m_runEnd(0), m_isInHand(false) {}

void DataAreaIndex::reset()
{
    m_table.clear();
    m_followers.clear();
    m_letGo.clear();
    m_last = NONE;
    m_expected = 0;
    m_runEnd = 0;
}

int DataAreaIndex::findInList(const QList<_DATA_>& list, int station, const QString& regType,
                              int address)
{
    for (int i = 0; i < list.size(); ++i) {
        if (isRecordOf(list.at(i), station, regType, address))
            return i;
    }
    return NONE;
}

void DataAreaIndex::addNewRecords(const QList<_DATA_>& list)
{
    const int size = static_cast<int>(list.size());
    int known = static_cast<int>(m_followers.size());
    while (known < size) {
        m_table.add(list, known);
        m_followers.push_back(++known);
    }
    m_runEnd = m_table.keys() == known ? known : 0;
}

int DataAreaIndex::search(const QList<_DATA_>& list, int station, const QString& regType,
                          int address)
{
    addNewRecords(list);
    const int found = m_table.find(list, station, regType, address);
    if (found == NONE)
        return NONE;
    if (m_last != NONE)
        m_followers[static_cast<size_t>(m_last)] = found;
    return foundAt(found);
}
