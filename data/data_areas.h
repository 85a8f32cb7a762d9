/// The cache: one record per address of a station, found or created on lookup.
#ifndef TARVELAN_DATA_DATA_AREAS_H
#define TARVELAN_DATA_DATA_AREAS_H

#include "data/data_area_index.h"
#include "driver/export.h"
#include "driver/records.h"
#include "driver/tarvelan.h"

#include <QtCore/QList>
#include <QtCore/QString>

/// Index of the first record of that station, type (exact name, known or not)
/// and address; a new, zeroed one is appended when there is none.
KX_EXPORT int getIndexOfDataArea(int station, QString regType, int address, QList<_DATA_>& list);

/// Appends a zeroed record and returns its index.
int appendDataArea(QList<_DATA_>& list, int station, const QString& regType, int address);

/// Index of the driver's own record for an address, found or created. For use inside of
/// UndisturbedAreas.
inline int indexOfArea(int station, const QString& regType, int address)
{
    const int found = dataAreaIndex->find(driver.dataAreas, station, regType, address);
    return found >= 0 ? found : appendDataArea(driver.dataAreas, station, regType, address);
}

/// That record. Valid until the next record is created or the value-change function is
/// called. For use inside of UndisturbedAreas.
inline _DATA_& dataArea(int station, const QString& regType, int address)
{
    return driver.dataAreas[indexOfArea(station, regType, address)];
}

/// Placed around lookups in each entry point: until it goes out of scope nobody but the
/// driver touches the cache, tellRuntime() excepted.
class UndisturbedAreas
{
public:
    UndisturbedAreas();
    ~UndisturbedAreas();

private:
    UndisturbedAreas(const UndisturbedAreas&);
    UndisturbedAreas& operator=(const UndisturbedAreas&);

    bool m_isOutermost;
};

/// callRuntime() for code that has the cache in hand: lets it go meanwhile, since the
/// runtime may change it or call back into the driver.
void tellRuntime(int link, int station, const QString& name, int address);

/// The bytes that the runtime sees: `writeValue` while a write is pending, else
/// `value`.
inline const unsigned char* visibleValue(const _DATA_& area)
{
    return area.writePending == 1 ? area.writeValue : area.value;
}

/// The 16-bit value of two bytes, low byte first.
inline int wordOf(const unsigned char* bytes)
{
    return bytes[0] | bytes[1] << 8;
}

/// Bit addresses share monitor marks in groups of 8, kept on the first one.
const int BITS_PER_GROUP = 8;

/// First address of the group, rounded toward zero.
inline int bitGroupStart(int address)
{
    return address / BITS_PER_GROUP * BITS_PER_GROUP;
}

/// Number of the address within its group, with the sign of the address.
inline int bitInGroup(int address)
{
    return address % BITS_PER_GROUP;
}

#endif
