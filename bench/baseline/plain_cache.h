/// The cache as one writes it first: a list that is searched from the front.
#ifndef KX_BENCH_BASELINE_PLAIN_CACHE_H
#define KX_BENCH_BASELINE_PLAIN_CACHE_H

#include "driver/records.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

struct PlainCache {
    QList<_DATA_> records;

    /// Index of the record of that key, created when there is none.
    int indexOf(int station, const QString& regType, int address);

    /// Stores the registers of a good reply and returns how many changed.
    int storeRegisters(int station, const QString& regType, int address, const QByteArray& reply);
};

#endif
