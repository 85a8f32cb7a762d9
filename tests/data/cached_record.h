/// Looks at the driver's cache without creating records.
#ifndef KX_TESTS_DATA_CACHED_RECORD_H
#define KX_TESTS_DATA_CACHED_RECORD_H

#include "data/data_areas.h"
#include "support/driver_fixture.h"

/// The first record of an address, or a record with address -999 when there is none.
inline _DATA_ cached(int station, const char* regType, int address)
{
    for (const _DATA_& area : driver.dataAreas) {
        if (area.station == station && area.regType == QString::fromLatin1(regType)
            && area.address == address)
            return area;
    }
    _DATA_ none = _DATA_();
    none.address = -999;
    return none;
}

inline bool isCached(int station, const char* regType, int address)
{
    return cached(station, regType, address).address == address;
}

inline int cachedCount()
{
    return static_cast<int>(driver.dataAreas.size());
}

/// The four bytes of the value read last.
inline QByteArray readValue(int station, const char* regType, int address)
{
    const _DATA_ area = cached(station, regType, address);
    return QByteArray(reinterpret_cast<const char*>(area.value), 4);
}

/// The four bytes of the value written last.
inline QByteArray writtenValue(int station, const char* regType, int address)
{
    const _DATA_ area = cached(station, regType, address);
    return QByteArray(reinterpret_cast<const char*>(area.writeValue), 4);
}

inline bool isPending(int station, const char* regType, int address)
{
    return cached(station, regType, address).writePending == 1;
}

/// The record to change, found or created.
inline _DATA_& record(int station, const char* regType, int address)
{
    return driver.dataAreas[getIndexOfDataArea(station, QString::fromLatin1(regType), address,
                                               driver.dataAreas)];
}

inline void setReadValue(int station, const char* regType, int address, const QByteArray& value)
{
    _DATA_& area = record(station, regType, address);
    for (int i = 0; i < value.size(); ++i)
        area.value[i] = static_cast<unsigned char>(value.at(i));
}

/// A write of the runtime with values from hex text.
inline int setValues(int station, const char* regType, int address, int count, const char* hex)
{
    QByteArray values = bytes(hex);
    return intf_setData(station, QString::fromLatin1(regType), address, count,
                        reinterpret_cast<unsigned char*>(values.data()), WRITE_JOB);
}

/// The reports of some addresses of station 1 at link 1, in order.
inline QList<Report> reportsOf(const char* name, const QList<int>& addresses)
{
    QList<Report> reports;
    for (const int address : addresses)
        reports << Report{1, 1, QString::fromLatin1(name), address};
    return reports;
}

#endif
