// Heap: bytes per cached address, and allocations per poll. Prints one figure per
// line: name, value.
#include "data/data_areas.h"
#include "support/counting_heap.h"
#include "support/device_addresses.h"
#include "support/panel.h"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace
{

const int ADDRESSES = 100000;
const int STATIONS = 5;
const int MAX_WORDS = 125;
const int WARM_UP = 100; // polls, until the first values are there
const int POLLS = 1000;

size_t heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd; // in small and in mapped blocks
}

typedef QString (*NameFor)(const DeviceAddress&);

QString sharedName(const DeviceAddress& address)
{
    return address.regType;
}

/// As a runtime does that makes the name anew for each call.
QString ownName(const DeviceAddress& address)
{
    return QString::fromLatin1(address.regType.toLatin1());
}

double bytesPerAddress(NameFor nameFor)
{
    const std::vector<DeviceAddress> addresses = scatteredAddresses(ADDRESSES, STATIONS);
    const Panel panel(MAX_WORDS);
    const size_t before = heapBytes();
    for (const DeviceAddress& address : addresses)
        getIndexOfDataArea(address.station, nameFor(address), address.address, driver.dataAreas);
    const size_t grown = heapBytes() - before;
    return static_cast<double>(grown) / static_cast<double>(driver.dataAreas.size());
}

/// Watches `keys` and polls with each reply in turn.
double allocationsPerPoll(QList<KEY_ADDRESS> keys, std::vector<QByteArray> replies)
{
    Panel panel(MAX_WORDS);
    intf_addrMerge(keys);
    long before = 0;
    for (size_t i = 0; i < WARM_UP + POLLS; ++i) {
        if (i == WARM_UP)
            before = heapAllocations();
        if (!panel.poll(replies[i % replies.size()]))
            return -1;
    }
    return static_cast<double>(heapAllocations() - before) / POLLS;
}

QList<KEY_ADDRESS> registers(int blocks)
{
    QList<KEY_ADDRESS> keys;
    for (int i = 0; i < blocks; ++i)
        keys.append(watched(1, QString::fromLatin1("D"), 1000 * i, 125));
    return keys;
}

QByteArray registerReply(unsigned char fill)
{
    return reply(1, 3, 250, fill);
}

// In a process of its own each: an emptied driver keeps some of its memory.
void print(const char* name, double (*measure)())
{
    if (fork() == 0) {
        std::printf("%s %.3f\n", name, measure());
        std::fflush(stdout);
        _exit(0);
    }
    wait(nullptr);
}

} // namespace

int main()
{
    print("bytes_per_address", [] { return bytesPerAddress(sharedName); });
    print("bytes_per_address_own_names", [] { return bytesPerAddress(ownName); });
    print("allocations_per_poll",
          [] { return allocationsPerPoll(registers(1), {registerReply(1)}); });
    print("allocations_per_poll_of_eight",
          [] { return allocationsPerPoll(registers(8), {registerReply(1)}); });
    print("allocations_per_changed_poll", [] {
        return allocationsPerPoll(registers(1), {registerReply(1), registerReply(2)});
    });
}
