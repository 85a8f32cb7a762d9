#ifndef TARVELAN_DRIVER_CLEAR_DATA_AREAS_H
#define TARVELAN_DRIVER_CLEAR_DATA_AREAS_H

/// Empties `driver.dataAreas` as initialising does, and keeps its memory where Qt's list
/// does. Defined beside the index of the cache, which holds a copy of the list.
void clearDataAreas();

#endif
