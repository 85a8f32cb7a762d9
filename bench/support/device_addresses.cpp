#include "support/device_addresses.h"

#include "registers/register_types.h"
#include "support/panel.h"

#include <algorithm>
#include <random>

namespace
{

const unsigned int SEED = 1;
const int STATIONS_AROUND = 5; // enough for 100,000 addresses

void shuffle(std::vector<DeviceAddress>& addresses)
{
    std::mt19937 random(SEED);
    std::shuffle(addresses.begin(), addresses.end(), random);
}

std::vector<DeviceAddress> allAddresses(int stations)
{
    std::vector<DeviceAddress> all;
    for (const RegisterType& type : REGISTER_TYPES) {
        const QString name = QString::fromLatin1(type.name);
        // A 32CV at its highest address reaches one past it.
        const int end = type.limit - (registersPerAddress(findRegisterType(name)) - 1);
        for (int station = 1; station <= stations; ++station)
            for (int address = type.lowestAddress; address < end; ++address)
                all.push_back({station, name, address});
    }
    return all;
}

int elementsOf(const DeviceAddress& address)
{
    return registersPerAddress(findRegisterType(address.regType));
}

bool isPolled(const DeviceAddress& address, const DeviceAddress& first, int polled)
{
    return address.station == first.station && address.regType == first.regType
           && address.address >= first.address && address.address < first.address + polled;
}

} // namespace

std::vector<DeviceAddress> scatteredAddresses(int count, int stations)
{
    std::vector<DeviceAddress> all = allAddresses(stations);
    shuffle(all);
    std::vector<DeviceAddress> chosen;
    for (size_t i = 0; i < static_cast<size_t>(count); ++i)
        chosen.push_back(all[i % all.size()]);
    return chosen;
}

QList<KEY_ADDRESS> asWatchList(const std::vector<DeviceAddress>& addresses)
{
    QList<KEY_ADDRESS> keys;
    for (const DeviceAddress& address : addresses)
        keys.append(
            watched(address.station, address.regType, address.address, elementsOf(address)));
    return keys;
}

void cache(const std::vector<DeviceAddress>& addresses)
{
    unsigned char value[4];
    for (const DeviceAddress& address : addresses)
        intf_getData(address.station, address.regType, address.address, elementsOf(address), value);
}

std::vector<DeviceAddress> cachedAround(const DeviceAddress& first, int polled, int total,
                                        bool scattered)
{
    std::vector<DeviceAddress> addresses;
    for (const DeviceAddress& other : scatteredAddresses(total, STATIONS_AROUND)) {
        if (static_cast<int>(addresses.size()) + polled >= total)
            break;
        if (!isPolled(other, first, polled))
            addresses.push_back(other);
    }
    for (int i = 0; i < polled; ++i)
        addresses.push_back({first.station, first.regType, first.address + i});
    if (scattered)
        shuffle(addresses);
    return addresses;
}
