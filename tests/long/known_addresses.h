#ifndef KX_TESTS_LONG_KNOWN_ADDRESSES_H
#define KX_TESTS_LONG_KNOWN_ADDRESSES_H

#include "long/device_ranges.h"

#include <QtCore/QList>

/// Addresses from one mark to the next when a read of bits has failed.
const int MARK_STRIDE_OF_BITS = 8;

/// The addresses that the cache must hold, each once, and no others: what was
/// watched, read, written or looked at since it was empty, and what failures mark.
class KnownAddresses
{
public:
    KnownAddresses();

    void clear();
    void addAll(const DeviceRange& range);
    /// Bits are watched in groups of eight, of which the first address stands for all.
    void addWatched(const DeviceRange& range);
    /// A read failed for good: one mark per bit or register asked for.
    void addUnanswered(const DeviceRange& range);

    /// What the cache holds too much, twice or not at all; empty when it is right.
    QString wrongIn(const QList<_DATA_>& cache) const;

private:
    size_t placeOf(int station, const QString& regType, int address) const;
    void add(const DeviceRange& range, int addresses, int stride);

    std::vector<unsigned char> m_known; // by station, type and address
    qint64 m_count;
};

#endif
