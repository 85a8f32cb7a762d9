/// Addresses of all register types at several stations, in a fixed random order.
#ifndef KX_BENCH_SUPPORT_DEVICE_ADDRESSES_H
#define KX_BENCH_SUPPORT_DEVICE_ADDRESSES_H

#include "driver/records.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <vector>

struct DeviceAddress {
    int station;
    QString regType;
    int address;
};

/// The first `count` of all addresses that stations 1 to `stations` have, shuffled.
/// One station has 21840 addresses; when more are asked for, the order repeats.
std::vector<DeviceAddress> scatteredAddresses(int count, int stations);

/// The same as a list to watch, one element each.
QList<KEY_ADDRESS> asWatchList(const std::vector<DeviceAddress>& addresses);

/// Makes the driver cache `addresses`, in that order.
void cache(const std::vector<DeviceAddress>& addresses);

/// `polled` consecutive addresses from `first` on, and as many others that the
/// cache holds `total` addresses. The others come first, or, when `scattered`,
/// all are shuffled together.
std::vector<DeviceAddress> cachedAround(const DeviceAddress& first, int polled, int total,
                                        bool scattered);

#endif
