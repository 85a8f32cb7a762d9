#ifndef TARVELAN_DATA_UNCHANGED_RUN_H
#define TARVELAN_DATA_UNCHANGED_RUN_H

#include "data/data_areas.h"
#include "driver/wrapping.h"

#include <algorithm>

/// Most replies bring the values that are there: such elements ask for nothing. Returns
/// the first element from `first` on, but before `end`, which lies behind it, that is not like that
/// or has no record yet; else `end`. `elements.areIn(area, k)` tells whether the record holds what
/// element k brings.
template <typename Elements>
int endOfUnchangedRun(const Elements& elements, int first, int end)
{
    const QList<_DATA_>& list = driver.dataAreas;
    const QList<_DATA_>::const_iterator areas = list.constBegin();
    int k = first;
    int address = wrapAdd(elements.address, k);
    int group = dataAreaIndex->findGroup(list, elements.station, elements.regType, address);
    while (group != RecordTable::NONE) {
        const int place = RecordTable::placeOf(address);
        const int* record = dataAreaIndex->recordsOf(group) + place;
        const int endOfGroup = k + std::min(end - k, RecordTable::GROUP_SIZE - place);
        for (; k < endOfGroup; ++record, ++k) {
            if (*record == RecordTable::NONE)
                return k;
            const _DATA_& area = areas[*record];
            if (area.commError != 0 || !elements.areIn(area, k))
                return k;
        }
        if (k == end)
            return end;
        address = wrapAdd(elements.address, k);
        group = dataAreaIndex->nextGroup(group, list, elements.station, elements.regType, address);
    }
    return k;
}

#endif
