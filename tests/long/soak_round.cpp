#include "long/soak_round.h"

#include <algorithm>

namespace
{

const int MOST_WORDS = 123; // which a write of registers may carry, too
const int WRITES_THAT_OVERFILL = 600;
const int DRAINING = 20000; // exchanges that empty any queue, faults long over

typedef std::vector<DeviceRange> Ranges;

const DeviceRange& anyOf(RandomSource& random, const Ranges& ranges)
{
    return ranges[static_cast<size_t>(random.below(static_cast<int>(ranges.size())))];
}

/// A part of `whole` of at most `most` elements. Never a multiple of eight coils,
/// the last eight of which a write turns off.
DeviceRange pieceOf(RandomSource& random, const DeviceRange& whole, int most)
{
    const int step = holdsDoubleWords(whole.regType) ? 2 : 1;
    DeviceRange piece = whole;
    piece.count = step * random.between(1, std::min(most, whole.count) / step);
    if (holdsBits(piece.regType) && piece.count % 8 == 0)
        --piece.count;
    piece.address += random.between(0, (whole.count - piece.count) / step);
    return piece;
}

/// All of the ranges in pieces that one request can read.
void appendWhole(Ranges& plan, const Ranges& ranges, int most)
{
    for (const DeviceRange& whole : ranges) {
        const int step = holdsDoubleWords(whole.regType) ? 2 : 1;
        const int limit = most / step * step;
        for (int done = 0; done < whole.count; done += limit) {
            DeviceRange piece = whole;
            piece.address += done / step;
            piece.count = std::min(limit, whole.count - done);
            plan.push_back(piece);
        }
    }
}

/// Every setpoint, and parts of what the process changes.
Ranges randomPlan(RandomSource& random, int maxWords)
{
    Ranges plan;
    appendWhole(plan, setpointRanges(), maxWords);
    for (const DeviceRange& process : processRanges()) {
        for (int i = random.below(5); i > 0; --i)
            plan.push_back(pieceOf(random, process, holdsBits(process.regType) ? 2000 : maxWords));
    }
    return plan;
}

/// Lets the line be good or bad, or the controllers be silent, for a while.
int faultsForAWhile(RandomSource& random)
{
    return random.oneOf({0, 0, 0, 1, 5, 20, 100});
}

void drain(SoakRuntime& runtime)
{
    runtime.setFaults(0);
    runtime.setWritesInside(false);
    int left = DRAINING;
    while (!driver.writeList.isEmpty() || !driver.condList.isEmpty() || runtime.isRecipeRunning()) {
        if (left-- == 0 || !runtime.exchange())
            soakFailed(QString::fromLatin1("the queues do not drain"));
    }
    if (runtime.isAskedOnce())
        soakFailed(QString::fromLatin1("the end of a condition read was not reported"));
}

/// Reads all that is watched at least once and compares it.
void compareAll(SoakRuntime& runtime, const Ranges& plan)
{
    for (int i = static_cast<int>(driver.readList.size()); i >= 0; --i)
        runtime.exchange();
    for (const DeviceRange& range : plan)
        runtime.compare(range);
}

/// The writes that a full queue drops stay unconfirmed, so they are written again.
void overfillTheQueue(SoakRuntime& runtime)
{
    DeviceRange setpoints = setpointRanges().front();
    DeviceRange one = setpoints;
    one.count = 1;
    for (int i = 0; i < WRITES_THAT_OVERFILL; ++i) {
        one.address = setpoints.address + i;
        runtime.write(one);
    }
    if (driver.writeList.size() != 513)
        soakFailed(QString::fromLatin1("a full queue of another size"));
    drain(runtime);
    runtime.write(setpoints);
    drain(runtime);
}

/// Once in a thousand exchanges or so each; what an operator does now and then.
void doSomethingRare(SoakRuntime& runtime, Ranges& plan)
{
    RandomSource& random = runtime.random();
    switch (random.below(4)) {
    case 0:
        plan = randomPlan(random, runtime.maxWords());
        runtime.watch(plan);
        break;
    case 1:
    case 2:
        if (!runtime.isRecipeRunning())
            runtime.startRecipe(random.chance(50));
        break;
    default:
        runtime.initialise(runtime.maxWords());
        runtime.watch(plan);
        break;
    }
}

void doSomething(SoakRuntime& runtime)
{
    RandomSource& random = runtime.random();
    const int limit = runtime.maxWords();
    const int dice = random.below(100);
    if (dice < 40) {
        runtime.letTheProcessMove();
    } else if (dice < 44) {
        const DeviceRange& setpoint = anyOf(random, setpointRanges());
        const int most = setpoint.regType == QLatin1String("D") ? 300 : std::min(limit, 20);
        runtime.write(pieceOf(random, setpoint, random.chance(10) ? most : 6));
    } else if (dice < 46 && !runtime.isAskedOnce()) {
        const DeviceRange& process = anyOf(random, processRanges());
        const bool isSplit = random.chance(20) && !holdsDoubleWords(process.regType);
        runtime.askOnce(pieceOf(random, process, isSplit ? 1000 : limit));
    }
}

} // namespace

bool QueueSizes::operator==(const QueueSizes& other) const
{
    return reads == other.reads && writes == other.writes && conditions == other.conditions
           && frames == other.frames && cache == other.cache && variables == other.variables
           && blocks == other.blocks && starts == other.starts && names == other.names;
}

QString QueueSizes::text() const
{
    return QString::fromLatin1("%1 read jobs, %2 writes, %3 condition reads, %4 frames, %5 cached "
                               "values, %6 recipe variables in %7 blocks")
        .arg(reads)
        .arg(writes)
        .arg(conditions)
        .arg(frames)
        .arg(cache)
        .arg(variables)
        .arg(blocks);
}

void runRound(SoakRuntime& runtime, int exchanges)
{
    RandomSource& random = runtime.random();
    runtime.initialise(random.oneOf({32, 64, MOST_WORDS}));
    Ranges plan = randomPlan(random, runtime.maxWords());
    runtime.watch(plan);
    runtime.setWritesInside(true);
    for (int i = 0; i < exchanges; ++i) {
        if (random.below(300) == 0)
            runtime.setFaults(faultsForAWhile(random));
        if (random.below(300) == 0)
            doSomethingRare(runtime, plan);
        doSomething(runtime);
        if (!runtime.exchange())
            soakFailed(QString::fromLatin1("nothing to send"));
    }
    drain(runtime);
    compareAll(runtime, plan);
    overfillTheQueue(runtime);
    compareAll(runtime, plan);
}

QueueSizes sizesAtRest(SoakRuntime& runtime)
{
    Ranges everything;
    for (const Ranges* ranges : {&processRanges(), &setpointRanges(), &recipeRanges()})
        appendWhole(everything, *ranges, MOST_WORDS);
    runtime.initialise(MOST_WORDS);
    runtime.watch(everything);
    compareAll(runtime, everything);
    const QueueSizes sizes = {
        driver.readList.size(),  driver.writeList.size(), driver.condList.size(),
        driver.frameList.size(), driver.dataAreas.size(), driver.rcpVarsA.size(),
        driver.rcpVars.size(),   driver.intList.size(),   driver.regNames.size()};
    return sizes;
}
