// Planning by the number of addresses, with all cache records there already.
#include "baseline/plain_planner.h"
#include "planning/monitor_flags.h"
#include "support/device_addresses.h"
#include "support/panel.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace
{

const int STATIONS = 4;
const int MAX_WORDS = 125;

QList<KEY_ADDRESS> watchList(const benchmark::State& state)
{
    return asWatchList(scatteredAddresses(static_cast<int>(state.range(0)), STATIONS));
}

void merge(benchmark::State& state)
{
    Panel panel(MAX_WORDS);
    QList<KEY_ADDRESS> keys = watchList(state);
    intf_addrMerge(keys);
    for (auto _ : state)
        benchmark::DoNotOptimize(intf_addrMerge(keys));
}

bool sameJob(const VARIABLE& a, const VARIABLE& b)
{
    return a.kind == b.kind && a.station == b.station && a.regType == b.regType
           && a.address == b.address && a.count == b.count;
}

bool samePlan(const QList<VARIABLE>& a, const QList<VARIABLE>& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), sameJob);
}

void plainMerge(benchmark::State& state)
{
    Panel panel(MAX_WORDS);
    QList<KEY_ADDRESS> keys = watchList(state);
    intf_addrMerge(keys);
    PlainPlanner planner(MAX_WORDS);
    planner.cache().records = driver.dataAreas;
    for (auto _ : state)
        planner.plan(keys);
    if (!samePlan(planner.readJobs(), driver.readList))
        state.SkipWithError("the driver's plan is another one");
}

void markDoubleWords(benchmark::State& state)
{
    Panel panel(MAX_WORDS);
    const QString regType = QString::fromLatin1("32CV");
    const int registers = 2 * static_cast<int>(state.range(0));
    cache(scatteredAddresses(10000, STATIONS));
    _setDataAreaMonitorFlag(1, regType, 200, registers);
    for (auto _ : state)
        _setDataAreaMonitorFlag(1, regType, 200, registers);
}

BENCHMARK(merge)->Name("merge")->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainMerge)
    ->Name("plain_merge")
    ->Arg(1000)
    ->Arg(10000)
    ->Iterations(1)
    ->Repetitions(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(markDoubleWords)->Name("mark_double_words")->Arg(56)->Arg(560)->Arg(5600)->Arg(56000);

} // namespace
