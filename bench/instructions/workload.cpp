// A fixed amount of one kind of work, for counting instructions. Only what runs
// inside measured() is counted. Argument: the name of the work; without one, all
// names are printed.
#include "support/device_addresses.h"
#include "support/panel.h"

#include <cstdio>
#include <cstring>
#include <functional>

/// Named without namespace, and seen from outside so that the compiler makes no clone of another
/// name: callgrind is told to count inside it.
extern "C" __attribute__((noinline, visibility("default"))) void
measured(const std::function<void()>& work)
{
    work();
}

namespace
{

const int CACHED = 10000;
const int POLLS = 100;
const int MAX_COILS = 2000;

void pollRepeatedly(const DeviceAddress& first, int addresses, int count,
                    std::vector<QByteArray> replies)
{
    cache(cachedAround(first, addresses, CACHED, false));
    QList<KEY_ADDRESS> keys;
    keys.append(watched(first.station, first.regType, first.address, count));
    intf_addrMerge(keys);
    Panel::readChangesBack();
    static FRAME_PRO frame = FRAME_PRO();
    QString errorText;
    const auto pollAll = [&] {
        for (size_t i = 0; i < POLLS; ++i) {
            intf_getSendFrame(&frame);
            intf_dealRcvFrame(replies[i % replies.size()], errorText);
        }
    };
    pollAll();
    measured(pollAll);
}

void pollRegisters()
{
    pollRepeatedly({1, QString::fromLatin1("D"), 1000}, 125, 125, {reply(1, 3, 250, 0x12)});
}

void pollChangedRegisters()
{
    pollRepeatedly({1, QString::fromLatin1("D"), 1000}, 125, 125,
                   {reply(1, 3, 250, 0x12), reply(1, 3, 250, 0x34)});
}

void pollCoils()
{
    pollRepeatedly({1, QString::fromLatin1("M"), 4000}, 2000, 2000, {reply(1, 1, 250, 0)});
}

void pollDoubleWords()
{
    pollRepeatedly({1, QString::fromLatin1("32CV"), 194}, 62, 124, {reply(1, 3, 248, 0x12)});
}

void merge()
{
    QList<KEY_ADDRESS> keys = asWatchList(scatteredAddresses(CACHED, 4));
    intf_addrMerge(keys);
    measured([&] { intf_addrMerge(keys); });
}

void mergeIntoEmptyCache()
{
    QList<KEY_ADDRESS> keys = asWatchList(scatteredAddresses(CACHED, 4));
    measured([&] { intf_addrMerge(keys); });
}

void readValues()
{
    const std::vector<DeviceAddress> addresses = scatteredAddresses(CACHED, 4);
    cache(addresses);
    measured([&] { cache(addresses); });
}

void writeValues()
{
    const std::vector<DeviceAddress> addresses = scatteredAddresses(CACHED, 4);
    cache(addresses);
    measured([&] {
        for (size_t i = 0; i < 1000; ++i) {
            const DeviceAddress& one = addresses[i];
            unsigned char value[] = {1, 0, 0, 0};
            intf_setData(one.station, one.regType, one.address, 1, value, WRITE_JOB);
        }
    });
}

const struct {
    const char* name;
    void (*run)();
} WORKS[] = {
    {"poll_registers", pollRegisters},
    {"poll_changed_registers", pollChangedRegisters},
    {"poll_coils", pollCoils},
    {"poll_double_words", pollDoubleWords},
    {"merge", merge},
    {"merge_into_empty_cache", mergeIntoEmptyCache},
    {"read_values", readValues},
    {"write_values", writeValues},
};

} // namespace

int main(int argc, char** argv)
{
    for (const auto& work : WORKS) {
        if (argc < 2) {
            std::puts(work.name);
        } else if (std::strcmp(argv[1], work.name) == 0) {
            const Panel panel(MAX_COILS);
            work.run();
            return 0;
        }
    }
    return argc < 2 ? 0 : 1;
}
