// The plain cache taking in one reply, by the number of cached addresses.
#include "baseline/plain_cache.h"
#include "support/device_addresses.h"
#include "support/panel.h"

#include <benchmark/benchmark.h>

namespace
{

const int REGISTERS = 125;

void plainPoll(benchmark::State& state)
{
    const QString regType = QString::fromLatin1("D");
    const int total = static_cast<int>(state.range(0));
    PlainCache cache;
    for (const DeviceAddress& one : cachedAround({1, regType, 1000}, REGISTERS, total, false)) {
        _DATA_ record = _DATA_();
        record.station = one.station;
        record.regType = one.regType;
        record.address = one.address;
        cache.records.append(record);
    }
    const QByteArray bytes = reply(1, 3, 2 * REGISTERS, 0x12);
    for (auto _ : state)
        benchmark::DoNotOptimize(cache.storeRegisters(1, regType, 1000, bytes));
}

BENCHMARK(plainPoll)->Name("plain_poll_registers")->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
