#ifndef TARVELAN_DATA_UNCHANGED_RUN_H
#define TARVELAN_DATA_UNCHANGED_RUN_H

#include "data/data_areas.h"
#include "driver/wrapping.h"

/// Most replies bring the values that are there, for records that follow each
/// other as their addresses do: such elements ask for nothing. Returns the first
/// element from `first` on, but before `end`, that is not like that; else `end`.
/// `elements.areIn(area, k)` tells whether the record holds what element k brings.
template <typename Elements>
int endOfUnchangedRun(const Elements elements, int first, int end)
{
    const int firstRecord = dataAreaIndex->runStart();
    const QList<_DATA_>::const_iterator start = driver.dataAreas.constBegin();
    const QList<_DATA_>::const_iterator areasEnd = start + dataAreaIndex->runEnd();
    QList<_DATA_>::const_iterator area = start + firstRecord;
    int k = first;
    while (k < end && area != areasEnd && area->address == wrapAdd(elements.address, k)
           && area->station == elements.station && area->regType.isSharedWith(elements.regType)
           && area->commError == 0 && elements.areIn(*area, k)) {
        ++area;
        ++k;
    }
    if (k > first)
        dataAreaIndex->goOnFrom(firstRecord + (k - first) - 1);
    return k;
}

#endif
