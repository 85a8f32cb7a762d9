// Values of single addresses, by the number of cached addresses.
#include "support/device_addresses.h"
#include "support/panel.h"

#include <benchmark/benchmark.h>

namespace
{

const int MAX_WORDS = 125;
const size_t PROBES = 64; // few enough to stay in the processor's cache

/// Word addresses spread over the whole cache. The next one is never the next record.
std::vector<DeviceAddress> prepare(int cached)
{
    const QString data = QString::fromLatin1("D");
    const std::vector<DeviceAddress> addresses =
        cachedAround({1, data, 0}, static_cast<int>(PROBES), cached, true);
    cache(addresses);
    std::vector<DeviceAddress> probes;
    for (size_t i = 0; i < PROBES; ++i)
        probes.push_back({1, data, static_cast<int>(i * 37 % PROBES)});
    return probes;
}

void getData(benchmark::State& state)
{
    Panel panel(MAX_WORDS);
    const std::vector<DeviceAddress> probes = prepare(static_cast<int>(state.range(0)));
    unsigned char value[2];
    size_t i = 0;
    for (auto _ : state) {
        const DeviceAddress& probe = probes[i++ % PROBES];
        intf_getData(probe.station, probe.regType, probe.address, 1, value);
    }
}

// The same value again and again: only the first call reports a change.
void setData(benchmark::State& state)
{
    Panel panel(MAX_WORDS);
    const std::vector<DeviceAddress> probes = prepare(static_cast<int>(state.range(0)));
    unsigned char value[] = {0x34, 0x12};
    size_t i = 0;
    for (auto _ : state) {
        const DeviceAddress& probe = probes[i++ % PROBES];
        intf_setData(probe.station, probe.regType, probe.address, 1, value, WRITE_JOB);
    }
}

BENCHMARK(getData)->Name("get_data")->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(setData)->Name("set_data")->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
