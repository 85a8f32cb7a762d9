// Whole polls: intf_getSendFrame() and intf_dealRcvFrame(), by the number of
// cached addresses.
#include "support/device_addresses.h"
#include "support/panel.h"

#include <benchmark/benchmark.h>

namespace
{

const int READ_COILS = 1;
const int READ_REGISTERS = 3;
const int REGISTERS = 125;
const int COILS = 2000;
const int DOUBLE_WORDS = 62; // 124 registers

const DeviceAddress FIRST_REGISTER = {1, QString::fromLatin1("D"), 1000};
const DeviceAddress FIRST_COIL = {1, QString::fromLatin1("M"), 4000};
// A station has 56 of them; the driver takes the six below its first like any other.
const DeviceAddress FIRST_DOUBLE_WORD = {1, QString::fromLatin1("32CV"), 194};

enum Order { POLLED_LAST, SCATTERED };

/// Caches `total` addresses and watches `polled` of them, `count` elements in one
/// request.
void prepare(const DeviceAddress& first, int polled, int count, int total, Order order)
{
    cache(cachedAround(first, polled, total, order == SCATTERED));
    QList<KEY_ADDRESS> keys;
    keys.append(watched(first.station, first.regType, first.address, count));
    intf_addrMerge(keys);
}

/// Polls with each reply in turn. The first round fills the cache.
void pollWith(benchmark::State& state, Panel& panel, std::vector<QByteArray> replies,
              int changesPerPoll)
{
    for (QByteArray& bytes : replies) {
        if (!panel.poll(bytes))
            return state.SkipWithError("reply refused");
    }
    const long changesBefore = Panel::changes();
    size_t next = 0;
    for (auto _ : state) {
        if (!panel.poll(replies[next]))
            return state.SkipWithError("reply refused");
        next = next + 1 == replies.size() ? 0 : next + 1;
    }
    if (Panel::changes() - changesBefore != changesPerPoll * static_cast<long>(state.iterations()))
        state.SkipWithError("other changes reported than expected");
}

void registers(benchmark::State& state, Order order)
{
    Panel panel(REGISTERS);
    prepare(FIRST_REGISTER, REGISTERS, REGISTERS, static_cast<int>(state.range(0)), order);
    pollWith(state, panel, {reply(1, READ_REGISTERS, 2 * REGISTERS, 0x12)}, 0);
}

/// What a poll costs apart from its values.
void oneRegister(benchmark::State& state)
{
    Panel panel(REGISTERS);
    prepare(FIRST_REGISTER, 1, 1, static_cast<int>(state.range(0)), POLLED_LAST);
    pollWith(state, panel, {reply(1, READ_REGISTERS, 2, 0x12)}, 0);
}

void changedRegisters(benchmark::State& state)
{
    Panel panel(REGISTERS);
    prepare(FIRST_REGISTER, REGISTERS, REGISTERS, static_cast<int>(state.range(0)), POLLED_LAST);
    Panel::readChangesBack();
    pollWith(state, panel,
             {reply(1, READ_REGISTERS, 2 * REGISTERS, 0x12),
              reply(1, READ_REGISTERS, 2 * REGISTERS, 0x34)},
             REGISTERS);
}

// All coils off, so that only the two bytes of the CRC, which the comparison of
// raw bytes reaches, are reported.
void coils(benchmark::State& state)
{
    Panel panel(COILS);
    prepare(FIRST_COIL, COILS, COILS, static_cast<int>(state.range(0)), POLLED_LAST);
    pollWith(state, panel, {reply(1, READ_COILS, COILS / 8, 0)}, 2);
}

void doubleWords(benchmark::State& state)
{
    Panel panel(REGISTERS);
    prepare(FIRST_DOUBLE_WORD, DOUBLE_WORDS, 2 * DOUBLE_WORDS, static_cast<int>(state.range(0)),
            POLLED_LAST);
    pollWith(state, panel, {reply(1, READ_REGISTERS, 4 * DOUBLE_WORDS, 0x12)}, 0);
}

void cacheSizes(benchmark::internal::Benchmark* benchmark)
{
    for (const int cached : {100, 1000, 10000, 100000})
        benchmark->Arg(cached);
}

BENCHMARK_CAPTURE(registers, polled_last, POLLED_LAST)->Name("poll_registers")->Apply(cacheSizes);
BENCHMARK_CAPTURE(registers, scattered, SCATTERED)
    ->Name("poll_scattered_registers")
    ->Apply(cacheSizes);
BENCHMARK(oneRegister)->Name("poll_one_register")->Arg(1000);
BENCHMARK(changedRegisters)->Name("poll_changed_registers")->Apply(cacheSizes);
BENCHMARK(coils)->Name("poll_coils")->Apply(cacheSizes);
BENCHMARK(doubleWords)->Name("poll_double_words")->Apply(cacheSizes);

} // namespace
