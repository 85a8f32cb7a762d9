#include "data/data_area_index.h"

DataAreaIndex* dataAreaIndex;

DataAreaIndex::DataAreaIndex()
    : m_indexed(0), m_group(RecordTable::NONE), m_recent(0), m_isInHand(false)
{
}

void DataAreaIndex::reset()
{
    m_table.clear();
    m_letGo.clear();
    m_indexed = 0;
    m_group = RecordTable::NONE;
}

int DataAreaIndex::findInList(const QList<_DATA_>& list, int station, const QString& regType,
                              int address)
{
    for (int i = 0; i < list.size(); ++i) {
        if (isRecordOf(list.at(i), station, regType, address))
            return i;
    }
    return RecordTable::NONE;
}

int DataAreaIndex::search(const QList<_DATA_>& list, int station, const QString& regType,
                          int address)
{
    for (const int size = static_cast<int>(list.size()); m_indexed < size; ++m_indexed)
        m_table.add(list, m_indexed);
    return recordIn(findGroup(list, station, regType, address), address);
}
