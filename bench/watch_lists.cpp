// Watch lists of a panel's runtime by the number of tags, each of one address with a name.
#include "addresses/watch_pieces.h"
#include "panel/watch/watch_list.h"
#include "registers/register_types.h"
#include "support/device_addresses.h"

#include <benchmark/benchmark.h>

namespace
{

const int MAX_WORDS = 125;
const int CHANGED = 64;

/// D0 to D124 at station 1 among others of all types at several stations, shuffled.
QList<kx::Tag> tagsOf(const benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    QList<kx::Tag> tags;
    for (const DeviceAddress& address :
         cachedAround({1, QString::fromLatin1("D"), 0}, MAX_WORDS, count, true)) {
        kx::Tag tag;
        tag.name = QString::fromLatin1("Tag %1").arg(tags.size());
        tag.range = {findRegisterType(address.regType), address.address, 1, address.station};
        tags << tag;
    }
    return tags;
}

QList<qint64> zero(const kx::WatchEntry&)
{
    return {0};
}

void listTags(benchmark::State& state)
{
    const QList<kx::Tag> tags = tagsOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(kx::WatchList(tags));
}

void takeReads(benchmark::State& state)
{
    kx::WatchList list(tagsOf(state));
    VARIABLE job = VARIABLE();
    job.station = 1;
    job.regType = QString::fromLatin1("D");
    job.count = MAX_WORDS;
    if (list.onRead(job, zero, 1).size() != MAX_WORDS)
        state.SkipWithError("not all registers are listed");
    for (auto _ : state)
        benchmark::DoNotOptimize(list.onRead(job, zero, 2));
}

void takeChanges(benchmark::State& state)
{
    const QList<kx::Tag> tags = tagsOf(state);
    kx::WatchList list(tags);
    QList<kx::AddressRange> changed;
    for (int i = 0; i < CHANGED; ++i)
        changed << tags.at(i * (static_cast<int>(tags.size()) / CHANGED)).range;
    qint64 value = 0;
    int next = 0;
    for (auto _ : state) {
        const kx::AddressRange& range = changed.at(next);
        next = (next + 1) % CHANGED;
        ++value;
        benchmark::DoNotOptimize(list.onChange(
            range.station, QString::fromLatin1(range.type->name), range.address,
            [value](const kx::WatchEntry&) { return QList<qint64>{value}; }, value));
    }
}

void cutIntoPieces(benchmark::State& state)
{
    QList<kx::AddressRange> ranges;
    for (const kx::Tag& tag : tagsOf(state))
        ranges << tag.range;
    for (auto _ : state)
        benchmark::DoNotOptimize(kx::watchPieces(ranges, MAX_WORDS));
}

BENCHMARK(listTags)->Name("list_tags")->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(takeReads)->Name("list_read")->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(takeChanges)->Name("list_change")->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(cutIntoPieces)->Name("watch_pieces")->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace
