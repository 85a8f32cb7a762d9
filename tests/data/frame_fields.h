/// Frames that say where the data of a reply start (`frameFunc`) and how many bits or bytes
/// there are (`dataLen`). Bytes outside the reply count as 0.
#ifndef KX_TESTS_DATA_FRAME_FIELDS_H
#define KX_TESTS_DATA_FRAME_FIELDS_H

#include "data/cached_record.h"

#include <QtTest/QTest>

/// Changes the frame on the wire.
inline void setFields(int start, int length)
{
    driver.frameList[0].frameFunc = start;
    driver.frameList[0].dataLen = length;
}

/// The columns of what it is changed to.
inline void addFields()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
}

/// "ADDRESS:BYTES" of every cached value, `size` bytes each.
inline QString cachedValues(int size)
{
    QStringList values;
    for (const _DATA_& area : driver.dataAreas) {
        const QByteArray value(reinterpret_cast<const char*>(area.value), size);
        values << QString("%1:%2").arg(area.address).arg(QString(value.toHex()));
    }
    return values.join(" ");
}

#endif
