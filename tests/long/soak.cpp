// Very many exchanges with controllers in memory: every value compared, and memory
// and queues no larger at the end than at the beginning.

#include "long/soak_round.h"
#include "support/memory_use.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>

#include <cstdio>

namespace
{

const int EXCHANGES_PER_ROUND = 5000;
// Warm is what has made 50 rounds, and a tenth of a long run: until then the heap
// still meets new orders of allocations.
const int WARM_UP_ROUNDS = 50;
const int WARM_UP_PART = 10;
const int STRETCH_PART = 20; // without initialising
const int LEAST_MEASUREMENTS = 16;
const int LEAST_UNMEASURED = 4;          // when there is nothing to measure but the queues
const qint64 ALLOWED_SPREAD = 64 * 1024; // bytes
const qint64 MILLISECONDS_BETWEEN_LINES = 60000;

// Allocators that check every access leave memory unmeasured, and take their time.
int ordinaryExchanges()
{
    return isMemoryMeasurable() ? 400000 : 40000;
}

struct Wanted {
    qint64 exchanges;
    quint64 seed;
};

Wanted wantedFrom(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QString::fromLatin1("Polls controllers in memory as fast as it can.\nExample: kx_soak -n "
                            "50000000"));
    parser.addHelpOption();
    const QCommandLineOption exchanges({QString::fromLatin1("n"), QString::fromLatin1("exchanges")},
                                       QString::fromLatin1("Requests to send."),
                                       QString::fromLatin1("NUMBER"),
                                       QString::number(ordinaryExchanges()));
    const QCommandLineOption seed({QString::fromLatin1("s"), QString::fromLatin1("seed")},
                                  QString::fromLatin1("Same seed, same run."),
                                  QString::fromLatin1("NUMBER"), QString::fromLatin1("1"));
    parser.addOptions({exchanges, seed});
    parser.process(application);
    bool isNumber = false;
    const Wanted wanted = {parser.value(exchanges).toLongLong(&isNumber),
                           parser.value(seed).toULongLong()};
    if (!isNumber || wanted.exchanges < 1)
        soakFailed(QString::fromLatin1("--exchanges takes a number from 1 on"));
    return wanted;
}

void printProgress(const SoakCounts& counts, const MemoryUse& use, qint64 milliseconds)
{
    std::printf("%lld exchanges after %lld s: heap %lld, resident %lld bytes\n",
                static_cast<long long>(counts.exchanges),
                static_cast<long long>(milliseconds / 1000), static_cast<long long>(use.heap),
                static_cast<long long>(use.resident));
    std::fflush(stdout);
}

void print(const char* what, qint64 count)
{
    std::printf("%-22s %lld\n", what, static_cast<long long>(count));
}

void printCounts(const SoakCounts& counts)
{
    print("exchanges", counts.exchanges);
    print("  accepted", counts.accepted);
    print("  to be repeated", counts.repeated);
    print("  failed for good", counts.failed);
    print("cyclic reads", counts.reads);
    print("writes", counts.writes);
    print("condition reads", counts.conditionReads);
    print("recipe blocks", counts.recipeBlocks);
    print("recipes compared", counts.recipes);
    print("plans", counts.plans);
    print("initialisations", counts.initialisations);
    print("values reported", counts.reports);
    print("values compared", counts.valuesCompared);
}

bool needsMore(const MemorySpread& spread)
{
    return isMemoryMeasurable() && spread.measurements() < LEAST_MEASUREMENTS;
}

bool isWarm(int rounds, qint64 exchanges, qint64 wanted)
{
    return (rounds > WARM_UP_ROUNDS || !isMemoryMeasurable()) && exchanges >= wanted / WARM_UP_PART;
}

void checkMemory(const MemorySpread& spread)
{
    if (!isMemoryMeasurable()) {
        std::printf("memory is not measured under this allocator\n");
        return;
    }
    std::printf("memory after warm-up, %d times: heap %lld to %lld bytes; resident, each the "
                "average of eight, %lld to %lld bytes\n",
                spread.measurements(), static_cast<long long>(spread.lowest().heap),
                static_cast<long long>(spread.highest().heap),
                static_cast<long long>(spread.lowest().resident),
                static_cast<long long>(spread.highest().resident));
    if (!spread.isWithin(ALLOWED_SPREAD))
        soakFailed(QString::fromLatin1("memory moved by more than 64 KiB"));
}

void checkStretch(const Stretch& stretch)
{
    const MemoryUse lowest = stretch.memory.lowest();
    const MemoryUse highest = stretch.memory.highest();
    const QByteArray heap = isMemoryMeasurable()
                                ? "heap " + QByteArray::number(lowest.heap) + " to "
                                      + QByteArray::number(highest.heap) + " bytes, "
                                : QByteArray();
    std::printf("without initialising: %d measurements over %lld exchanges: %s%lld cached values "
                "always\n",
                stretch.memory.measurements(), static_cast<long long>(stretch.exchanges),
                heap.constData(), static_cast<long long>(stretch.sizes.cache));
    if (highest.heap - lowest.heap > ALLOWED_SPREAD)
        soakFailed(QString::fromLatin1("without initialising, the heap moved by more than 64 KiB"));
}

Stretch stretchOf(SoakRuntime& runtime, qint64 wanted)
{
    return runWithoutInitialising(runtime, wanted / STRETCH_PART,
                                  isMemoryMeasurable() ? LEAST_MEASUREMENTS : LEAST_UNMEASURED);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Wanted wanted = wantedFrom(application);
    SoakRuntime runtime(wanted.seed);
    SoakCounts& counts = runtime.counts();
    MemorySpread spread;
    QElapsedTimer clock;
    clock.start();
    qint64 nextLine = MILLISECONDS_BETWEEN_LINES;
    const QueueSizes first = sizesAtRest(runtime);
    Stretch stretch = Stretch();
    for (int round = 1; counts.exchanges < wanted.exchanges || needsMore(spread); ++round) {
        runRound(runtime, EXCHANGES_PER_ROUND);
        const bool isMeasured = isWarm(round, counts.exchanges, wanted.exchanges);
        if (isMeasured && stretch.exchanges == 0)
            stretch = stretchOf(runtime, wanted.exchanges);
        expectSame(first, sizesAtRest(runtime));
        const MemoryUse use = memoryUse();
        if (isMeasured)
            spread.add(use);
        if (clock.elapsed() >= nextLine) {
            printProgress(counts, use, clock.elapsed());
            nextLine += MILLISECONDS_BETWEEN_LINES;
        }
    }
    printCounts(counts);
    std::printf("at rest, always: %s\n", qPrintable(first.text()));
    std::printf("caches checked, %lld times: nothing that was not asked for, nothing twice\n",
                static_cast<long long>(counts.cachesChecked));
    checkStretch(stretch);
    checkMemory(spread);
    std::printf("%lld s\n", static_cast<long long>(clock.elapsed() / 1000));
    return 0;
}
